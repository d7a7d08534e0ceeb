#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace TLGateway {

// One run of a prepared statement. Parameters are bound in their order ($1 first), columns count from 0.
// Every operation throws DatabaseError.
class IQuery
{
public:
    IQuery() = default;
    IQuery(const IQuery&) = delete;
    IQuery& operator=(const IQuery&) = delete;
    virtual ~IQuery() = default;

    // Bound texts must live until the run ends.
    virtual IQuery& BindText(std::string_view text) = 0;
    virtual IQuery& BindBlob(std::string_view bytes) = 0;
    virtual IQuery& BindInteger(std::int64_t value) = 0;
    virtual IQuery& BindBoolean(bool value) = 0;

    // True while there is a row to look at.
    [[nodiscard]] virtual bool Step() = 0;
    // Runs a statement that changes rows, and gives their number.
    virtual std::size_t Run() = 0;

    [[nodiscard]] virtual std::string Text(int column) const = 0;
    [[nodiscard]] virtual std::string Blob(int column) const = 0;
    [[nodiscard]] virtual std::int64_t Integer(int column) const = 0;
    [[nodiscard]] virtual bool Boolean(int column) const = 0;

    // Throws the error that the engine gives for damaged data.
    [[noreturn]] virtual void ThrowDamaged(const std::string& finding) const = 0;
};

} // namespace TLGateway
