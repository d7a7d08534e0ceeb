#pragma once

#include "store/rows/IQuery.h"

#include <memory>
#include <string_view>

namespace TLGateway {

// One connection to a database. One thread at a time.
class IConnection
{
public:
    IConnection() = default;
    IConnection(const IConnection&) = delete;
    IConnection& operator=(const IConnection&) = delete;
    virtual ~IConnection() = default;

    // Parameters are written $1, $2 and so on. The connection prepares each text once and must outlive the
    // query; two runs of one text must not overlap. Throws DatabaseError.
    [[nodiscard]] virtual std::unique_ptr<IQuery> Query(std::string_view sql) = 0;
};

} // namespace TLGateway
