#pragma once

#include "store/WriteFailure.h"
#include "store/sqlite/SqliteConnection.h"
#include "store/sqlite/SqliteError.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
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
    // Changes the database within the transaction that is open. May run again after a roll-back. Throws
    // SqliteError, or WriteRefused to undo just this write.
    using Write = std::function<void(SqliteConnection& connection)>;
    using Done = std::function<void(const std::optional<WriteFailure>& failure)>;

    // The connection passes to the writer's thread. At most queueLimit writes wait.
    SqliteWriter(std::unique_ptr<SqliteConnection> connection, std::string file, std::size_t queueLimit,
                 std::shared_ptr<spdlog::logger> logger);
    SqliteWriter(const SqliteWriter&) = delete;
    SqliteWriter& operator=(const SqliteWriter&) = delete;
    // Calls Close.
    ~SqliteWriter();

    // Any thread. `what` names the write in the log. When the queue is full or the writer closed, `done` is
    // called before this returns.
    void Submit(std::string what, Write write, Done done);

    // Finishes the writes that wait, then moves the write-ahead log into the database file. Submit refuses
    // from now on.
    void Close();

private:
    struct Job
    {
        std::string what;
        Write write;
        Done done;
        std::optional<WriteFailure> failure;
    };

    void Work();
    void RunBatch(std::vector<Job>& jobs);
    [[nodiscard]] bool RunTogether(std::vector<Job>& jobs);
    void RunAlone(Job& job);
    void RunUnderSavepoint(Job& job);
    void RollBack() noexcept;
    void Fail(Job& job, const SqliteError& error);

    const std::unique_ptr<SqliteConnection> m_connection;
    const std::string m_file;
    const std::size_t m_queueLimit;
    const std::shared_ptr<spdlog::logger> m_logger;

    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::deque<Job> m_queue;
    bool m_isClosing = false;
    std::thread m_thread; // last: it uses all of the above
};

} // namespace TLGateway
