#pragma once

#include "SqliteConnection.h"
#include "SqliteDialect.h"
#include "SqliteWriter.h"
#include "store/rows/IEngine.h"
#include "store/sqlite/SqliteStore.h"

#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace TLGateway {

// One writer, and a read-only connection for each thread that reads.
class SqliteEngine final : public IEngine
{
public:
    // Throws like SqliteStore.
    SqliteEngine(SqliteStore::Options options, std::shared_ptr<spdlog::logger> logger);
    ~SqliteEngine() override;

    void Close() override;
    [[nodiscard]] const IDialect& Dialect() const noexcept override { return m_dialect; }
    void Read(const char* what, const Work& read) override;
    void Write(std::string what, std::string pin, Work write, IStore::WriteDone done) override;

private:
    [[nodiscard]] std::unique_ptr<SqliteConnection> TakeReader();
    void ReturnReader(std::unique_ptr<SqliteConnection> reader);

    const SqliteStore::Options m_options;
    const SqliteDialect m_dialect;
    std::mutex m_readersMutex;
    std::vector<std::unique_ptr<SqliteConnection>> m_readers; // idle ones
    SqliteWriter m_writer;
};

} // namespace TLGateway
