#include "SqliteWriter.h"

#include "SqliteAdvice.h"

#include <spdlog/logger.h>

#include <utility>

namespace TLGateway {

namespace {

// Bounds how long the first write of a batch waits for the others.
constexpr std::size_t MaxBatch = 256;

const WriteFailure StoreFailure(WriteFailure::Reason::StoreFailed);

} // namespace

SqliteWriter::SqliteWriter(std::unique_ptr<SqliteConnection> connection, std::string file,
                           std::size_t queueLimit, std::shared_ptr<spdlog::logger> logger)
    : m_connection(std::move(connection))
    , m_file(std::move(file))
    , m_logger(std::move(logger))
    , m_queue(queueLimit)
    , m_thread(&SqliteWriter::Work, this)
{}

SqliteWriter::~SqliteWriter()
{
    Close();
}

void SqliteWriter::Submit(WriteJob job)
{
    m_queue.Push(std::move(job));
}

void SqliteWriter::Close()
{
    if (!m_queue.Close()) {
        return;
    }
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
    for (auto jobs = m_queue.Take(MaxBatch); !jobs.empty(); jobs = m_queue.Take(MaxBatch)) {
        RunBatch(jobs);
        for (WriteJob& job : jobs) {
            job.done(job.failure);
        }
    }
}

void SqliteWriter::RunBatch(std::vector<WriteJob>& jobs)
{
    try {
        m_connection->Execute("BEGIN IMMEDIATE");
    } catch (const SqliteError& error) {
        for (WriteJob& job : jobs) {
            job.failure = StoreFailure;
        }
        m_logger->error("{}", DescribeForOperator("starting " + std::to_string(jobs.size()) + " write(s)",
                                                  m_file, error));
        return;
    }
    if (!RunTogether(jobs)) {
        for (WriteJob& job : jobs) {
            RunAlone(job);
        }
    }
}

// False when the transaction is gone and with it every write of the batch.
bool SqliteWriter::RunTogether(std::vector<WriteJob>& jobs)
{
    try {
        for (WriteJob& job : jobs) {
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

void SqliteWriter::RunAlone(WriteJob& job)
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
void SqliteWriter::RunUnderSavepoint(WriteJob& job)
{
    m_connection->Execute("SAVEPOINT job");
    try {
        RunWrite(job, *m_connection, m_file, *m_logger);
        if (!job.failure) {
            m_connection->Execute("RELEASE job");
            return;
        }
    } catch (const SqliteError& error) {
        // A full disk or a failed read may have taken the whole transaction with it.
        if (!m_connection->IsInTransaction()) {
            throw;
        }
        Fail(job, error);
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

void SqliteWriter::Fail(WriteJob& job, const SqliteError& error)
{
    job.failure = StoreFailure;
    m_logger->error("{}", DescribeForOperator(job.what, m_file, error));
}

} // namespace TLGateway
