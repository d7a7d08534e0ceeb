#pragma once

#include "store/WriteFailure.h"
#include "store/postgres/PostgresConnection.h"
#include "store/postgres/PostgresError.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
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
    // Changes the database within the transaction that is open. May run again after a roll-back. Throws
    // PostgresError, or WriteRefused to undo just this write.
    using Write = std::function<void(PostgresConnection& connection)>;
    using Done = std::function<void(const std::optional<WriteFailure>& failure)>;

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

    // Any thread. `what` names the write in the log. From before the write until its commit no other gateway
    // changes what belongs to the user `pin`; empty for a write that belongs to none. When the queue is full
    // or the writer closed, `done` is called before this returns.
    void Submit(std::string what, std::string pin, Write write, Done done);

    // Finishes the writes that wait. Later ones fail (Closing).
    void Close();

private:
    struct Job
    {
        std::string what;
        std::string pin;
        Write write;
        Done done;
        std::optional<WriteFailure> failure;
    };
    using Jobs = std::vector<Job*>;

    void Work();
    void RunBatch(std::vector<Job>& batch);
    [[nodiscard]] std::optional<PostgresError> RunTransaction(const Jobs& jobs);
    void RunOnce(const Jobs& jobs);
    void LockUsers(const Jobs& jobs);
    void RunOnlyJob(Job& job);
    void RunUnderSavepoints(const Jobs& jobs);
    void Commit(const Jobs& jobs);
    [[nodiscard]] std::optional<bool> AskWhetherCommitted();
    [[nodiscard]] bool MayStayInDoubt();
    void RefuseWaiting();
    [[nodiscard]] PostgresConnection& Connected();
    void RollBack() noexcept;
    void Fail(Job& job, const PostgresError& error);

    const Connect m_connect;
    const Options m_options;
    const std::shared_ptr<spdlog::logger> m_logger;
    const std::string m_name; // of this writer among all that ever write to the database

    std::unique_ptr<PostgresConnection> m_connection; // null while there is none
    std::int64_t m_transactions = 0;

    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::deque<Job> m_queue;
    std::optional<std::chrono::steady_clock::time_point> m_closingSince;
    std::thread m_thread; // last: it uses all of the above
};

} // namespace TLGateway
