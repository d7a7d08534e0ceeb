#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace TLGateway {

// A fixed number of threads and a bounded queue of jobs for them.
class WorkerPool final
{
public:
    WorkerPool(std::size_t threads, std::size_t queueLimit);
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;
    // Calls Close.
    ~WorkerPool();

    // False, and the job is not taken, when the queue is full or the pool closed. A job must not throw.
    [[nodiscard]] bool TryPost(std::function<void()> job);

    // Finishes the jobs that wait. Must not be called from a job.
    void Close();

private:
    void Work();

    const std::size_t m_queueLimit;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::deque<std::function<void()>> m_queue;
    bool m_isClosing = false;
    std::vector<std::thread> m_threads;
};

} // namespace TLGateway
