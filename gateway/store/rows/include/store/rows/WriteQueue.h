#pragma once

#include "store/rows/WriteJob.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <vector>

namespace TLGateway {

// The writes that wait for an engine's one thread that writes. Any thread.
class WriteQueue final
{
public:
    explicit WriteQueue(std::size_t limit);
    WriteQueue(const WriteQueue&) = delete;
    WriteQueue& operator=(const WriteQueue&) = delete;

    // When the queue is full or closed, `done` is told before this returns.
    void Push(WriteJob job);

    // Waits for jobs and takes the oldest, at most `most`. Nothing when the queue is closed and empty.
    [[nodiscard]] std::vector<WriteJob> Take(std::size_t most);
    // Takes all that are waiting.
    [[nodiscard]] std::vector<WriteJob> TakeAll();

    // Takes no more jobs. False when it was closed before.
    bool Close();
    [[nodiscard]] std::optional<std::chrono::steady_clock::time_point> ClosedSince() const;
    // Returns when a job comes or the queue closes, at the latest after `longest`.
    void AwaitNews(std::chrono::milliseconds longest);

private:
    [[nodiscard]] std::vector<WriteJob> TakeLocked(std::size_t count);

    const std::size_t m_limit;
    mutable std::mutex m_mutex;
    std::condition_variable m_news;
    std::deque<WriteJob> m_jobs;
    std::optional<std::chrono::steady_clock::time_point> m_closedSince;
};

} // namespace TLGateway
