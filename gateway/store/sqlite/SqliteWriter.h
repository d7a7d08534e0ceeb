#pragma once

#include "SqliteConnection.h"
#include "SqliteError.h"
#include "store/rows/WriteQueue.h"

#include <cstddef>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace spdlog {
class logger;
}

namespace TLGateway {

// The one thread that writes. Writes that wait together go into one transaction (one flush to disk for all of
// them), each under a savepoint of its own, so that one that fails harms no other. Answers are given when the
// transaction is on disk, in the order of the writes.
class SqliteWriter final
{
public:
    // The connection passes to the writer's thread. At most queueLimit writes wait.
    SqliteWriter(std::unique_ptr<SqliteConnection> connection, std::string file, std::size_t queueLimit,
                 std::shared_ptr<spdlog::logger> logger);
    SqliteWriter(const SqliteWriter&) = delete;
    SqliteWriter& operator=(const SqliteWriter&) = delete;
    // Calls Close.
    ~SqliteWriter();

    // Any thread. When the queue is full or the writer closed, the job's `done` is told before this returns.
    void Submit(WriteJob job);

    // Does the writes that wait, then moves the write-ahead log into the database file. Later ones fail
    // (Closing).
    void Close();

private:
    void Work();
    void RunBatch(std::vector<WriteJob>& jobs);
    [[nodiscard]] bool RunTogether(std::vector<WriteJob>& jobs);
    void RunAlone(WriteJob& job);
    void RunUnderSavepoint(WriteJob& job);
    void RollBack() noexcept;
    void Fail(WriteJob& job, const SqliteError& error);

    const std::unique_ptr<SqliteConnection> m_connection;
    const std::string m_file;
    const std::shared_ptr<spdlog::logger> m_logger;
    WriteQueue m_queue;
    std::thread m_thread; // last: it uses all of the above
};

} // namespace TLGateway
