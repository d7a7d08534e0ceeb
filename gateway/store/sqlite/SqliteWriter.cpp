#include "store/sqlite/SqliteWriter.h"

#include "store/WriteRefused.h"
#include "store/sqlite/SqliteAdvice.h"

#include <spdlog/logger.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace TLGateway {

namespace {

// Bounds how long the first write of a batch waits for the others.
constexpr std::size_t MaxBatch = 256;

const WriteFailure StoreFailure(WriteFailure::Reason::StoreFailed);
const WriteFailure QueueFull(WriteFailure::Reason::QueueFull);
const WriteFailure Closing(WriteFailure::Reason::Closing);

} // namespace

SqliteWriter::SqliteWriter(std::unique_ptr<SqliteConnection> connection, std::string file,
                           std::size_t queueLimit, std::shared_ptr<spdlog::logger> logger)
    : m_connection(std::move(connection))
    , m_file(std::move(file))
    , m_queueLimit(queueLimit)
    , m_logger(std::move(logger))
    , m_thread(&SqliteWriter::Work, this)
{}

SqliteWriter::~SqliteWriter()
{
    Close();
}

void SqliteWriter::Submit(std::string what, Write write, Done done)
{
    std::unique_lock lock(m_mutex);
    if (m_isClosing || m_queue.size() >= m_queueLimit) {
        const WriteFailure& failure = m_isClosing ? Closing : QueueFull;
        lock.unlock();
        done(failure);
        return;
    }
    m_queue.push_back({std::move(what), std::move(write), std::move(done), std::nullopt});
    lock.unlock();
    m_wake.notify_one();
}

void SqliteWriter::Close()
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_isClosing) {
            return;
        }
        m_isClosing = true;
    }
    m_wake.notify_one();
    m_thread.join();
    try {
        m_connection->Checkpoint();
    } catch (const SqliteError& error) {
        // Nothing is lost: what is in the write-ahead log is read from there at the next start.
        m_logger->warn("{}", DescribeForOperator("moving the write-ahead log into the file", m_file, error));
    }
}

void SqliteWriter::Work()
{
    for (;;) {
        std::vector<Job> jobs;
        {
            std::unique_lock lock(m_mutex);
            m_wake.wait(lock, [this] { return m_isClosing || !m_queue.empty(); });
            if (m_queue.empty()) {
                return;
            }
            const auto count = static_cast<std::ptrdiff_t>(std::min(m_queue.size(), MaxBatch));
            jobs.assign(std::make_move_iterator(m_queue.begin()),
                        std::make_move_iterator(m_queue.begin() + count));
            m_queue.erase(m_queue.begin(), m_queue.begin() + count);
        }
        RunBatch(jobs);
        for (Job& job : jobs) {
            job.done(job.failure);
        }
    }
}

void SqliteWriter::RunBatch(std::vector<Job>& jobs)
{
    try {
        m_connection->Execute("BEGIN IMMEDIATE");
    } catch (const SqliteError& error) {
        for (Job& job : jobs) {
            job.failure = StoreFailure;
        }
        m_logger->error("{}", DescribeForOperator("starting " + std::to_string(jobs.size()) + " write(s)",
                                                  m_file, error));
        return;
    }
    if (!RunTogether(jobs)) {
        for (Job& job : jobs) {
            RunAlone(job);
        }
    }
}

// False when the transaction is gone and with it every write of the batch.
bool SqliteWriter::RunTogether(std::vector<Job>& jobs)
{
    try {
        for (Job& job : jobs) {
            RunUnderSavepoint(job);
        }
        m_connection->Execute("COMMIT");
        return true;
    } catch (const SqliteError& error) {
        RollBack();
        if (jobs.size() == 1) {
            Fail(jobs.front(), error);
            return true;
        }
        return false;
    }
}

void SqliteWriter::RunAlone(Job& job)
{
    job.failure.reset();
    try {
        m_connection->Execute("BEGIN IMMEDIATE");
        RunUnderSavepoint(job);
        m_connection->Execute("COMMIT");
    } catch (const SqliteError& error) {
        RollBack();
        Fail(job, error);
    }
}

// Throws SqliteError only when the whole transaction is lost.
void SqliteWriter::RunUnderSavepoint(Job& job)
{
    m_connection->Execute("SAVEPOINT job");
    try {
        job.write(*m_connection);
        m_connection->Execute("RELEASE job");
        return;
    } catch (const WriteRefused& refused) {
        job.failure = refused.Failure();
    } catch (const SqliteError& error) {
        // A full disk or a failed read may have taken the whole transaction with it.
        if (!m_connection->IsInTransaction()) {
            throw;
        }
        Fail(job, error);
    } catch (const std::exception& error) {
        job.failure = WriteFailure(WriteFailure::Reason::Internal);
        m_logger->error("database {}: {} failed: {}", m_file, job.what, error.what());
    }
    m_connection->Execute("ROLLBACK TO job; RELEASE job");
}

void SqliteWriter::RollBack() noexcept
{
    try {
        if (m_connection->IsInTransaction()) {
            m_connection->Execute("ROLLBACK");
        }
    } catch (const SqliteError& error) {
        m_logger->error("{}", DescribeForOperator("rolling back", m_file, error));
    }
}

void SqliteWriter::Fail(Job& job, const SqliteError& error)
{
    job.failure = StoreFailure;
    m_logger->error("{}", DescribeForOperator(job.what, m_file, error));
}

} // namespace TLGateway
