#include "SqliteEngine.h"

#include "SqliteAdvice.h"
#include "SqliteError.h"
#include "SqliteFile.h"
#include "store/StoreError.h"

#include <utility>

namespace TLGateway {

SqliteEngine::SqliteEngine(SqliteStore::Options options, std::shared_ptr<spdlog::logger> logger)
    : m_options(std::move(options))
    , m_writer(OpenForWriting(m_options), m_options.file, m_options.queueLimit, std::move(logger))
{}

SqliteEngine::~SqliteEngine()
{
    Close();
}

void SqliteEngine::Close()
{
    {
        const std::lock_guard lock(m_readersMutex);
        m_readers.clear();
    }
    m_writer.Close();
}

void SqliteEngine::Read(const char* what, const Work& read)
{
    try {
        std::unique_ptr<SqliteConnection> reader = TakeReader();
        read(*reader);
        // After an error the connection is dropped instead: the next read starts with a fresh one.
        ReturnReader(std::move(reader));
    } catch (const SqliteError& error) {
        throw StoreError(DescribeForOperator(what, m_options.file, error));
    }
}

// SQLite has one writer at a time, so no user needs a lock.
void SqliteEngine::Write(std::string what, std::string pin, Work write, IStore::WriteDone done)
{
    m_writer.Submit({std::move(what), std::move(pin), std::move(write), std::move(done), std::nullopt});
}

std::unique_ptr<SqliteConnection> SqliteEngine::TakeReader()
{
    {
        const std::lock_guard lock(m_readersMutex);
        if (!m_readers.empty()) {
            auto reader = std::move(m_readers.back());
            m_readers.pop_back();
            return reader;
        }
    }
    return std::make_unique<SqliteConnection>(m_options.file, SqliteConnection::Mode::ReadOnly,
                                              m_options.busyTimeout);
}

void SqliteEngine::ReturnReader(std::unique_ptr<SqliteConnection> reader)
{
    const std::lock_guard lock(m_readersMutex);
    m_readers.push_back(std::move(reader));
}

} // namespace TLGateway
