#pragma once

#include "store/rows/DatabaseError.h"

#include <string>

namespace TLGateway {

// A call of SQLite failed. The code is SQLite's extended result code.
class SqliteError final : public DatabaseError
{
public:
    SqliteError(int code, const std::string& message) : DatabaseError(message), m_code(code) {}

    [[nodiscard]] int Code() const noexcept { return m_code; }
    [[nodiscard]] int PrimaryCode() const noexcept { return m_code & 0xFF; }

private:
    int m_code;
};

} // namespace TLGateway
