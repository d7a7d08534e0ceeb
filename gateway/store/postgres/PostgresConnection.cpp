#include "PostgresConnection.h"

#include "PostgresError.h"

#include <libpq-fe.h>

#ifdef _WIN32
#include <winsock2.h>
#else
#include <poll.h>
#endif

#include <algorithm>
#include <cerrno>
#include <sstream>
#include <utility>
#include <vector>

namespace TLGateway {

namespace {

int Poll(pollfd& descriptor, int milliseconds)
{
#ifdef _WIN32
    return WSAPoll(&descriptor, 1, milliseconds);
#else
    return poll(&descriptor, 1, milliseconds);
#endif
}

// The lines of a message as one. Lines that only offer a hint start with a tab.
std::string OneLine(const char* message)
{
    std::string all;
    std::istringstream lines(message);
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line.front() != '\t') {
            all += all.empty() ? line : "; " + line;
        }
    }
    return all;
}

// The library says why a connection was refused in words only. Words in another language are not understood;
// the operator then gets the general advice.
std::string StateOfRefusedConnection(const std::string& message)
{
    static const std::vector<std::pair<const char*, const char*>> states = {
        {"permission denied", "42501"},
        {"too many", "53300"},
        {"password authentication failed", "28P01"},
        {"no password supplied", "28P01"},
        {"no pg_hba.conf entry", "28000"},
        {"Peer authentication failed", "28000"},
        {"role ", "28000"},
        {"database \"", "3D000"},
        {"remaining connection slots", "53300"},
        {"the database system is", "57P03"},
        {"session is read-only", "25006"},
        {"server is in hot standby", "25006"},
    };
    const auto found = std::find_if(states.begin(), states.end(), [&message](const auto& each) {
        return message.find(each.first) != std::string::npos;
    });
    return found == states.end() ? std::string() : found->second;
}

} // namespace

void PostgresConnection::Closed::operator()(pg_conn* connection) const noexcept
{
    PQfinish(connection);
}

PostgresConnection::PostgresConnection(const PostgresTarget& target, const PostgresLimits& limits)
    : m_limits(limits)
{
    std::vector<const char*> names;
    std::vector<const char*> values;
    for (const auto& [name, value] : target.Parameters()) {
        names.push_back(name.c_str());
        values.push_back(value.c_str());
    }
    names.push_back(nullptr);
    values.push_back(nullptr);
    m_connection.reset(PQconnectdbParams(names.data(), values.data(), 0));
    if (!m_connection || PQstatus(m_connection.get()) != CONNECTION_OK) {
        const std::string message = OneLine(PQerrorMessage(m_connection.get()));
        throw PostgresError(StateOfRefusedConnection(message), message, PostgresError::Connection::Lost);
    }
    // By default the library prints the server's notices to standard error.
    PQsetNoticeProcessor(
        m_connection.get(), [](void*, const char*) {}, nullptr);
    if (PQsetnonblocking(m_connection.get(), 1) != 0) {
        ThrowLost(OneLine(PQerrorMessage(m_connection.get())));
    }
    SetLimits();
}

PostgresConnection::~PostgresConnection() = default;

std::string PostgresConnection::Execute(const char* sql)
{
    CheckSent(PQsendQuery(m_connection.get(), sql));
    return PQcmdStatus(AwaitResult().get());
}

std::unique_ptr<IQuery> PostgresConnection::Query(std::string_view sql)
{
    const auto known = m_statements.find(std::string(sql));
    if (known != m_statements.end()) {
        return std::make_unique<PostgresQuery>(*this, known->second);
    }
    const std::string text(sql);
    const std::string name = "s" + std::to_string(m_statements.size());
    CheckSent(PQsendPrepare(m_connection.get(), name.c_str(), text.c_str(), 0, nullptr));
    static_cast<void>(AwaitResult());
    m_statements.emplace(text, name);
    return std::make_unique<PostgresQuery>(*this, name);
}

std::string PostgresConnection::SingleValue(std::string_view sql)
{
    const auto query = Query(sql);
    return query->Step() ? query->Text(0) : std::string();
}

bool PostgresConnection::IsUsable() const noexcept
{
    return m_connection && PQstatus(m_connection.get()) == CONNECTION_OK;
}

bool PostgresConnection::IsInTransaction() const noexcept
{
    const PGTransactionStatusType status = PQtransactionStatus(m_connection.get());
    return status == PQTRANS_INTRANS || status == PQTRANS_INERROR;
}

int PostgresConnection::ServerVersion() const noexcept
{
    return PQserverVersion(m_connection.get());
}

std::string PostgresConnection::ServerEncoding() const
{
    const char* encoding = PQparameterStatus(m_connection.get(), "server_encoding");
    return encoding == nullptr ? std::string() : encoding;
}

PostgresResult PostgresConnection::RunPrepared(const PostgresQuery& query)
{
    std::vector<const char*> values;
    std::vector<int> sizes;
    std::vector<int> formats;
    for (const PostgresQuery::Parameter& parameter : query.m_parameters) {
        values.push_back(parameter.value.c_str());
        sizes.push_back(static_cast<int>(parameter.value.size()));
        formats.push_back(parameter.isBinary ? 1 : 0);
    }
    CheckSent(PQsendQueryPrepared(m_connection.get(), query.m_statement.c_str(),
                                  static_cast<int>(values.size()), values.data(), sizes.data(),
                                  formats.data(), 0));
    return AwaitResult();
}

void PostgresConnection::SetLimits()
{
    // Keeps a stricter setting than "on". A weaker one would acknowledge writes that are not yet on disk.
    const std::string lock = std::to_string(m_limits.lock.count());
    const std::string statement = std::to_string(m_limits.statement.count());
    const std::string answer = std::to_string(m_limits.answer.count());
    const auto query = Query("SELECT set_config('search_path', 'tl_gateway', false), "
                             "set_config('bytea_output', 'hex', false), "
                             "set_config('lock_timeout', $1, false), "
                             "set_config('statement_timeout', $2, false), "
                             "set_config('idle_in_transaction_session_timeout', $3, false), "
                             "set_config('synchronous_commit', CASE current_setting('synchronous_commit') "
                             "WHEN 'remote_apply' THEN 'remote_apply' ELSE 'on' END, false)");
    static_cast<void>(query->BindText(lock).BindText(statement).BindText(answer).Step());
}

void PostgresConnection::CheckSent(int isSent)
{
    if (!m_connection) {
        ThrowLost("the connection is closed");
    }
    if (isSent == 0) {
        ThrowLost(OneLine(PQerrorMessage(m_connection.get())));
    }
}

PostgresResult PostgresConnection::AwaitResult()
{
    const auto deadline = std::chrono::steady_clock::now() + m_limits.answer;
    pg_conn* connection = m_connection.get();
    // An error shows up again in the results.
    while (PQflush(connection) == 1) {
        AwaitSocket(true, deadline);
        if (PQconsumeInput(connection) == 0) {
            break;
        }
    }
    PostgresResult last;
    for (;;) {
        while (PQisBusy(connection) != 0) {
            AwaitSocket(false, deadline);
            if (PQconsumeInput(connection) == 0) {
                break;
            }
        }
        PostgresResult next(PQgetResult(connection));
        if (!next) {
            break;
        }
        // Of several statements the last one counts, or the first that fails.
        if (!last || PQresultStatus(last.get()) != PGRES_FATAL_ERROR) {
            last = std::move(next);
        }
    }
    const bool isLost = !last || PQstatus(connection) != CONNECTION_OK;
    const ExecStatusType status = PQresultStatus(last.get());
    if (!isLost && (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK)) {
        return last;
    }
    // The error's details are left out: they may contain stored values.
    const char* state = PQresultErrorField(last.get(), PG_DIAG_SQLSTATE);
    const char* message = PQresultErrorField(last.get(), PG_DIAG_MESSAGE_PRIMARY);
    const std::string text = OneLine(message == nullptr ? PQerrorMessage(connection) : message);
    if (isLost) {
        ThrowLost(text, state == nullptr ? "" : state);
    }
    throw PostgresError(state == nullptr ? "" : state, text, PostgresError::Connection::Usable);
}

void PostgresConnection::AwaitSocket(bool alsoToWrite, std::chrono::steady_clock::time_point deadline)
{
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        pollfd descriptor = {};
        descriptor.fd = PQsocket(m_connection.get());
        descriptor.events = static_cast<short>(alsoToWrite ? POLLIN | POLLOUT : POLLIN);
        const int ready = Poll(descriptor, static_cast<int>(std::max<std::int64_t>(left.count(), 0)));
        if (ready > 0) {
            return;
        }
        if (ready == 0) {
            ThrowLost("the server gave no answer within " + std::to_string(m_limits.answer.count()) + " ms");
        }
        if (errno != EINTR) {
            ThrowLost("waiting for the server's answer failed");
        }
    }
}

void PostgresConnection::ThrowLost(const std::string& message, const std::string& state)
{
    m_connection.reset();
    throw PostgresError(state, message, PostgresError::Connection::Lost);
}

} // namespace TLGateway
