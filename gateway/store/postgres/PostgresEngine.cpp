#include "PostgresEngine.h"

#include "PostgresAdvice.h"
#include "PostgresError.h"
#include "PostgresSchema.h"
#include "store/StoreError.h"

#include <spdlog/logger.h>

#include <utility>

namespace TLGateway {

namespace {

constexpr int OldestServer = 130000;
// Another gateway may be creating the tables right now.
constexpr PostgresLimits MigrationLimits = {std::chrono::seconds(30), std::chrono::seconds(60),
                                            std::chrono::seconds(65)};

} // namespace

PostgresEngine::PostgresEngine(PostgresStore::Options options, std::shared_ptr<spdlog::logger> logger)
    : m_options(std::move(options))
    , m_target(m_options.url)
    , m_logger(std::move(logger))
    , m_readers([this] { return std::make_unique<PostgresConnection>(m_target, m_options.limits); },
                m_options.readers, m_options.limits.lock)
{
    Open();
    m_writer = std::make_unique<PostgresWriter>(
        [this] { return std::make_unique<PostgresConnection>(m_target, m_options.limits); },
        PostgresWriter::Options{m_target.Description(), m_options.queueLimit, m_options.doubtAtClose},
        m_logger);
}

PostgresEngine::~PostgresEngine()
{
    Close();
}

void PostgresEngine::Close()
{
    m_readers.CloseIdle();
    m_writer->Close();
}

void PostgresEngine::Open()
{
    try {
        PostgresConnection connection(m_target, MigrationLimits);
        if (connection.ServerVersion() < OldestServer) {
            throw std::runtime_error("the server is older than PostgreSQL 13");
        }
        if (connection.ServerEncoding() != "UTF8") {
            throw std::runtime_error("the database keeps texts as " + connection.ServerEncoding() +
                                     ", which cannot hold every text; make it with the encoding UTF8");
        }
        MigrateSchema(connection, PostgresSchemaScripts(),
                      m_options.mustExist ? EmptyDatabase::IsRefused : EmptyDatabase::IsFilled);
        if (connection.SingleValue("SELECT current_setting('fsync')") != "on") {
            m_logger->warn(
                "database {}: the server runs with fsync = off; a power failure there loses writes "
                "that were answered",
                m_target.Description());
        }
        // Removes what killed gateways left behind.
        connection
            .Query("DELETE FROM write_receipt WHERE writer IN (SELECT writer FROM write_receipt "
                   "WHERE written_at < now() - interval '30 days' FOR UPDATE SKIP LOCKED)")
            ->Run();
    } catch (const PostgresError& error) {
        throw StoreError(DescribeForOperator("opening", m_target.Description(), error));
    } catch (const std::runtime_error& problem) {
        throw StoreError("database " + m_target.Description() + ": " + problem.what());
    }
}

void PostgresEngine::Read(const char* what, const Work& read)
{
    try {
        for (;;) {
            const PostgresPool::Loan reader = m_readers.Borrow();
            try {
                read(reader.Connection());
                return;
            } catch (const PostgresError& error) {
                if (!error.IsConnectionLost() || reader.IsNew()) {
                    throw;
                }
                // The server may have been restarted: no older connection is any good then.
                m_readers.CloseIdle();
            }
        }
    } catch (const PostgresError& error) {
        throw StoreError(DescribeForOperator(what, m_target.Description(), error));
    }
}

void PostgresEngine::Write(std::string what, std::string pin, Work write, IStore::WriteDone done)
{
    m_writer->Submit({std::move(what), std::move(pin), std::move(write), std::move(done), std::nullopt});
}

} // namespace TLGateway
