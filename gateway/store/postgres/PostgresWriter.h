#pragma once

#include "PostgresConnection.h"
#include "PostgresError.h"
#include "store/rows/WriteQueue.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace spdlog {
class logger;
}

namespace TLGateway {

// The one thread of this gateway that writes; other gateways may write to the same database. Writes that wait
// together go into one transaction (one flush to disk for all of them), each under a savepoint of its own, so
// that one that fails harms no other. Answers are given when the transaction is on disk, in the order of the
// writes.
//
// When the connection is lost before a commit, the transaction is rolled back and done once more on a new
// connection; when there is none, all writes that wait fail (StoreFailed). When it is lost during a commit,
// the writes are answered as soon as the server has said whether they are stored.
class PostgresWriter final
{
public:
    using Connect = std::function<std::unique_ptr<PostgresConnection>()>;

    struct Options
    {
        std::string database; // as the log names it
        std::size_t queueLimit = 1024;
        // How long Close waits for a server that has not yet said whether a commit was done.
        std::chrono::milliseconds doubtAtClose{10000};
    };

    PostgresWriter(Connect connect, Options options, std::shared_ptr<spdlog::logger> logger);
    PostgresWriter(const PostgresWriter&) = delete;
    PostgresWriter& operator=(const PostgresWriter&) = delete;
    // Calls Close.
    ~PostgresWriter();

    // Any thread. From before the write until its commit no other gateway changes what belongs to the job's
    // user. When the queue is full or the writer closed, the job's `done` is told before this returns.
    void Submit(WriteJob job);

    // Does the writes that wait. Later ones fail (Closing).
    void Close();

private:
    using Jobs = std::vector<WriteJob*>;

    void Work();
    void RunBatch(std::vector<WriteJob>& batch);
    [[nodiscard]] std::optional<PostgresError> RunTransaction(const Jobs& jobs);
    void RunOnce(const Jobs& jobs);
    void LockUsers(const Jobs& jobs);
    void RunUnderSavepoints(const Jobs& jobs);
    void Commit(const Jobs& jobs);
    [[nodiscard]] std::optional<bool> AskWhetherCommitted();
    void RefuseWaiting();
    [[nodiscard]] PostgresConnection& Connected();
    void RollBack() noexcept;
    void Fail(WriteJob& job, const PostgresError& error);

    const Connect m_connect;
    const Options m_options;
    const std::shared_ptr<spdlog::logger> m_logger;
    const std::string m_name; // identifies this writer among all that ever write to the database

    std::unique_ptr<PostgresConnection> m_connection; // null while there is none
    std::int64_t m_transactions = 0;

    WriteQueue m_queue;
    std::thread m_thread; // last: it uses all of the above
};

} // namespace TLGateway
