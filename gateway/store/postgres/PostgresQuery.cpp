#include "PostgresQuery.h"

#include "PostgresConnection.h"
#include "PostgresError.h"

#include <libpq-fe.h>

#include <new>
#include <utility>

namespace TLGateway {

namespace {

constexpr char Escape = '\x01';

} // namespace

void PostgresResultDeleter::operator()(pg_result* result) const noexcept
{
    PQclear(result);
}

std::string ToPostgresText(std::string_view text)
{
    std::string stored;
    stored.reserve(text.size());
    for (const char c : text) {
        if (c == '\0' || c == Escape) {
            stored += Escape;
            stored += c == '\0' ? '0' : '1';
        } else {
            stored += c;
        }
    }
    return stored;
}

std::string FromPostgresText(std::string_view stored)
{
    std::string text;
    text.reserve(stored.size());
    for (std::size_t i = 0; i < stored.size(); ++i) {
        if (stored[i] == Escape && i + 1 < stored.size()) {
            text += stored[++i] == '0' ? '\0' : Escape;
        } else {
            text += stored[i];
        }
    }
    return text;
}

PostgresQuery::PostgresQuery(PostgresConnection& connection, std::string statement)
    : m_connection(connection), m_statement(std::move(statement))
{}

IQuery& PostgresQuery::BindText(std::string_view text)
{
    m_parameters.push_back({ToPostgresText(text), false});
    return *this;
}

IQuery& PostgresQuery::BindBlob(std::string_view bytes)
{
    m_parameters.push_back({std::string(bytes), true});
    return *this;
}

IQuery& PostgresQuery::BindInteger(std::int64_t value)
{
    m_parameters.push_back({std::to_string(value), false});
    return *this;
}

IQuery& PostgresQuery::BindBoolean(bool value)
{
    m_parameters.push_back({value ? "t" : "f", false});
    return *this;
}

bool PostgresQuery::Step()
{
    if (!m_result) {
        m_result = m_connection.RunPrepared(*this);
    }
    return ++m_row < PQntuples(m_result.get());
}

std::size_t PostgresQuery::Run()
{
    m_result = m_connection.RunPrepared(*this);
    const std::string changed = PQcmdTuples(m_result.get());
    return changed.empty() ? 0 : std::stoul(changed);
}

std::string PostgresQuery::Text(int column) const
{
    return FromPostgresText(Raw(column));
}

std::string PostgresQuery::Blob(int column) const
{
    struct Freed
    {
        void operator()(unsigned char* bytes) const noexcept { PQfreemem(bytes); }
    };
    std::size_t size = 0;
    const std::unique_ptr<unsigned char, Freed> bytes(PQunescapeBytea(
        reinterpret_cast<const unsigned char*>(PQgetvalue(m_result.get(), m_row, column)), &size));
    if (!bytes) {
        throw std::bad_alloc();
    }
    return {reinterpret_cast<const char*>(bytes.get()), size};
}

std::int64_t PostgresQuery::Integer(int column) const
{
    return std::stoll(std::string(Raw(column)));
}

bool PostgresQuery::Boolean(int column) const
{
    return Raw(column) == "t";
}

void PostgresQuery::ThrowDamaged(const std::string& finding) const
{
    throw PostgresError("XX001", finding, PostgresError::Connection::Usable);
}

std::string_view PostgresQuery::Raw(int column) const
{
    return {PQgetvalue(m_result.get(), m_row, column),
            static_cast<std::size_t>(PQgetlength(m_result.get(), m_row, column))};
}

} // namespace TLGateway
