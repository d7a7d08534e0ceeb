#include "PostgresWriter.h"

#include "PostgresAdvice.h"
#include "PostgresQuery.h"
#include "base/Random.h"
#include "base/Text.h"

#include <boost/json/array.hpp>
#include <boost/json/serialize.hpp>
#include <spdlog/logger.h>

#include <algorithm>
#include <set>
#include <utility>

namespace TLGateway {

namespace {

// Bounds how long the first write of a batch waits for the others; and beyond 64 savepoints in a transaction
// the server gets slower for all its sessions.
constexpr std::size_t MaxBatch = 64;
constexpr int MaxAttempts = 5;
// When a batch has to be done write by write, those not started by then fail.
constexpr std::chrono::seconds OneByOneLimit{10};
constexpr std::chrono::milliseconds DoubtInterval{250};
constexpr std::size_t NameSize = 16;

const WriteFailure StoreFailure(WriteFailure::Reason::StoreFailed);
const WriteFailure OutcomeUnknown(WriteFailure::Reason::OutcomeUnknown);

// The server ended one of two transactions that waited for each other.
bool IsConflict(const PostgresError& error)
{
    return error.State() == "40P01" || error.State() == "40001";
}

} // namespace

PostgresWriter::PostgresWriter(Connect connect, Options options, std::shared_ptr<spdlog::logger> logger)
    : m_connect(std::move(connect))
    , m_options(std::move(options))
    , m_logger(std::move(logger))
    , m_name(ToHex(RandomBytes(NameSize)))
    , m_queue(m_options.queueLimit)
    , m_thread(&PostgresWriter::Work, this)
{}

PostgresWriter::~PostgresWriter()
{
    Close();
}

void PostgresWriter::Submit(WriteJob job)
{
    m_queue.Push(std::move(job));
}

void PostgresWriter::Close()
{
    if (!m_queue.Close()) {
        return;
    }
    m_thread.join();
    if (!m_connection) {
        return;
    }
    try {
        m_connection->Query("DELETE FROM write_receipt WHERE writer = $1")->BindText(m_name).Run();
    } catch (const PostgresError& error) {
        // Nothing is lost: a gateway that starts later removes it.
        m_logger->warn(
            "{}", DescribeForOperator("removing the receipt of this gateway", m_options.database, error));
    }
    m_connection.reset();
}

void PostgresWriter::Work()
{
    for (auto batch = m_queue.Take(MaxBatch); !batch.empty(); batch = m_queue.Take(MaxBatch)) {
        RunBatch(batch);
        for (WriteJob& job : batch) {
            job.done(job.failure);
        }
    }
}

void PostgresWriter::RunBatch(std::vector<WriteJob>& batch)
{
    Jobs jobs;
    for (WriteJob& job : batch) {
        jobs.push_back(&job);
    }
    std::optional<PostgresError> error = RunTransaction(jobs);
    if (!error) {
        return;
    }
    if (jobs.size() == 1) {
        Fail(batch.front(), *error);
    } else if (!error->IsConnectionLost()) {
        // One of them may be to blame.
        const auto deadline = std::chrono::steady_clock::now() + OneByOneLimit;
        for (WriteJob& job : batch) {
            if (!error || (!error->IsConnectionLost() && std::chrono::steady_clock::now() < deadline)) {
                error = RunTransaction({&job});
            }
            if (error) {
                Fail(job, *error);
            }
        }
    } else {
        for (WriteJob& job : batch) {
            job.failure = StoreFailure;
        }
        m_logger->error(
            "{}", DescribeForOperator(std::to_string(batch.size()) + " writes", m_options.database, *error));
    }
    if (error && error->IsConnectionLost()) {
        RefuseWaiting();
    }
}

// Nothing of the jobs is stored when there is an error.
std::optional<PostgresError> PostgresWriter::RunTransaction(const Jobs& jobs)
{
    for (int attempt = 1;; ++attempt) {
        const bool wasConnected = m_connection != nullptr;
        try {
            RunOnce(jobs);
            return std::nullopt;
        } catch (const PostgresError& error) {
            RollBack();
            // An existing connection may have been lost long ago, for example when the server restarted. A
            // new one that is lost at once will not get better.
            const bool isWorthAnother = IsConflict(error) || (error.IsConnectionLost() && wasConnected);
            if (attempt == MaxAttempts || !isWorthAnother) {
                return error;
            }
        }
    }
}

void PostgresWriter::RunOnce(const Jobs& jobs)
{
    for (WriteJob* job : jobs) {
        job->failure.reset();
    }
    PostgresConnection& connection = Connected();
    connection.Execute("BEGIN ISOLATION LEVEL READ COMMITTED");
    connection
        .Query("INSERT INTO write_receipt (writer, number, written_at) VALUES ($1, $2, now()) "
               "ON CONFLICT (writer) DO UPDATE SET number = excluded.number, written_at = now()")
        ->BindText(m_name)
        .BindInteger(++m_transactions)
        .Run();
    LockUsers(jobs);
    if (jobs.size() == 1) {
        RunWrite(*jobs.front(), connection, m_options.database, *m_logger);
    } else {
        RunUnderSavepoints(jobs);
    }
    const bool haveAllFailed =
        std::all_of(jobs.begin(), jobs.end(), [](const WriteJob* job) { return job->failure.has_value(); });
    if (haveAllFailed) {
        connection.Execute("ROLLBACK");
    } else {
        Commit(jobs);
    }
}

// Locks all at once and in one order, so that two gateways cannot deadlock.
void PostgresWriter::LockUsers(const Jobs& jobs)
{
    std::set<std::string> pins;
    for (const WriteJob* job : jobs) {
        if (!job->pin.empty()) {
            pins.insert(ToPostgresText(job->pin));
        }
    }
    if (pins.empty()) {
        return;
    }
    const boost::json::array list(pins.begin(), pins.end());
    const std::string pinList = boost::json::serialize(list);
    const auto query = m_connection->Query(
        "SELECT 1 FROM gateway_user WHERE pin IN (SELECT json_array_elements_text($1::json)) "
        "ORDER BY pin FOR NO KEY UPDATE OF gateway_user");
    static_cast<void>(query->BindText(pinList).Step());
}

// Throws PostgresError only when the whole transaction is lost.
void PostgresWriter::RunUnderSavepoints(const Jobs& jobs)
{
    PostgresConnection& connection = *m_connection;
    bool isFirst = true;
    for (WriteJob* job : jobs) {
        connection.Execute(std::exchange(isFirst, false) ? "SAVEPOINT job" : "RELEASE job; SAVEPOINT job");
        try {
            RunWrite(*job, connection, m_options.database, *m_logger);
        } catch (const PostgresError& error) {
            if (IsConflict(error) || error.IsConnectionLost() || !connection.IsInTransaction()) {
                throw;
            }
            Fail(*job, error);
        }
        if (job->failure) {
            connection.Execute("ROLLBACK TO job");
        }
    }
}

void PostgresWriter::Commit(const Jobs& jobs)
{
    std::optional<bool> isCommitted;
    try {
        // Without a bound: a commit that the server gives up while it waits for its standby counts as done
        // there, though the standby may not have it.
        if (m_connection->Execute("SET LOCAL statement_timeout = 0; COMMIT") == "COMMIT") {
            return;
        }
        isCommitted = false;
    } catch (const PostgresError& error) {
        if (!error.IsConnectionLost()) {
            throw;
        }
        m_logger->error("{} The gateway asks whether the writes are stored as soon as the server answers.",
                        DescribeForOperator("committing " + std::to_string(jobs.size()) + " write(s)",
                                            m_options.database, error));
        m_connection.reset();
        isCommitted = AskWhetherCommitted();
    }
    m_logger->warn("database {}: {} write(s) {}", m_options.database, jobs.size(),
                   !isCommitted   ? "may or may not be stored: the server did not answer before the shutdown"
                   : *isCommitted ? "are stored, as the server says"
                                  : "are not stored, as the server says");
    // Lost writes are not repeated: the commit may be long ago, and others may have written since.
    for (WriteJob* job : jobs) {
        if (!isCommitted.value_or(false) && !job->failure) {
            job->failure = isCommitted ? StoreFailure : OutcomeUnknown;
        }
    }
}

// Asks until the server answers; gives nothing when the gateway ends first. The statement waits for a
// transaction that is still under way on the server, so what it finds is final. The server's own number of
// the transaction would not do: after a crash, or on a standby that takes over, another one may have it.
std::optional<bool> PostgresWriter::AskWhetherCommitted()
{
    for (;;) {
        try {
            const auto query = Connected().Query("INSERT INTO write_receipt (writer, number, written_at) "
                                                 "VALUES ($1, 0, now()) ON CONFLICT (writer) DO UPDATE "
                                                 "SET written_at = now() RETURNING number");
            return query->BindText(m_name).Step() && query->Integer(0) == m_transactions;
        } catch (const PostgresError& error) {
            m_logger->debug("{}",
                            DescribeForOperator("asking for the last commit", m_options.database, error));
            m_connection.reset();
        }
        // The others would wait for the same server.
        RefuseWaiting();
        m_queue.AwaitNews(DoubtInterval);
        const auto closed = m_queue.ClosedSince();
        if (closed && std::chrono::steady_clock::now() - *closed >= m_options.doubtAtClose) {
            return std::nullopt;
        }
    }
}

void PostgresWriter::RefuseWaiting()
{
    const std::vector<WriteJob> waiting = m_queue.TakeAll();
    if (!waiting.empty()) {
        m_logger->error("database {}: {} waiting write(s) refused", m_options.database, waiting.size());
    }
    for (const WriteJob& job : waiting) {
        job.done(StoreFailure);
    }
}

PostgresConnection& PostgresWriter::Connected()
{
    if (!m_connection) {
        m_connection = m_connect();
    }
    return *m_connection;
}

void PostgresWriter::RollBack() noexcept
{
    if (!m_connection) {
        return;
    }
    try {
        if (m_connection->IsInTransaction()) {
            m_connection->Execute("ROLLBACK");
        }
    } catch (const PostgresError& error) {
        m_logger->error("{}", DescribeForOperator("rolling back", m_options.database, error));
    }
    if (!m_connection->IsUsable()) {
        m_connection.reset();
    }
}

void PostgresWriter::Fail(WriteJob& job, const PostgresError& error)
{
    job.failure = StoreFailure;
    m_logger->error("{}", DescribeForOperator(job.what, m_options.database, error));
}

} // namespace TLGateway
