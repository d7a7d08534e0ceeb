#pragma once

#include "PostgresDialect.h"
#include "PostgresPool.h"
#include "PostgresTarget.h"
#include "PostgresWriter.h"
#include "store/postgres/PostgresStore.h"
#include "store/rows/IEngine.h"

#include <memory>
#include <string>

namespace TLGateway {

// One writer, and a bounded number of connections to read with.
class PostgresEngine final : public IEngine
{
public:
    // Throws like PostgresStore.
    PostgresEngine(PostgresStore::Options options, std::shared_ptr<spdlog::logger> logger);
    ~PostgresEngine() override;

    void Close() override;
    [[nodiscard]] const IDialect& Dialect() const noexcept override { return m_dialect; }
    void Read(const char* what, const Work& read) override;
    void Write(std::string what, std::string pin, Work write, IStore::WriteDone done) override;

private:
    void Open();

    const PostgresStore::Options m_options;
    const PostgresTarget m_target;
    const PostgresDialect m_dialect;
    const std::shared_ptr<spdlog::logger> m_logger;
    PostgresPool m_readers;
    std::unique_ptr<PostgresWriter> m_writer;
};

} // namespace TLGateway
