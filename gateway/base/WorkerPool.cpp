#include "base/WorkerPool.h"

#include <utility>

namespace TLGateway {

WorkerPool::WorkerPool(std::size_t threads, std::size_t queueLimit) : m_queueLimit(queueLimit)
{
    for (std::size_t i = 0; i < threads; ++i) {
        m_threads.emplace_back(&WorkerPool::Work, this);
    }
}

WorkerPool::~WorkerPool()
{
    Close();
}

bool WorkerPool::TryPost(std::function<void()> job)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_isClosing || m_queue.size() >= m_queueLimit) {
            return false;
        }
        m_queue.push_back(std::move(job));
    }
    m_wake.notify_one();
    return true;
}

void WorkerPool::Close()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isClosing = true;
    }
    m_wake.notify_all();
    for (std::thread& thread : m_threads) {
        if (thread.joinable()) {
            thread.join();
        }
    }
}

void WorkerPool::Work()
{
    for (;;) {
        std::function<void()> job;
        {
            std::unique_lock lock(m_mutex);
            m_wake.wait(lock, [this] { return m_isClosing || !m_queue.empty(); });
            if (m_queue.empty()) {
                return;
            }
            job = std::move(m_queue.front());
            m_queue.pop_front();
        }
        job();
    }
}

} // namespace TLGateway
