#include "store/rows/WriteQueue.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace TLGateway {

WriteQueue::WriteQueue(std::size_t limit) : m_limit(limit) {}

void WriteQueue::Push(WriteJob job)
{
    std::unique_lock lock(m_mutex);
    if (m_closedSince || m_jobs.size() >= m_limit) {
        const WriteFailure failure(m_closedSince ? WriteFailure::Reason::Closing
                                                 : WriteFailure::Reason::QueueFull);
        lock.unlock();
        job.done(failure);
        return;
    }
    m_jobs.push_back(std::move(job));
    lock.unlock();
    m_news.notify_one();
}

std::vector<WriteJob> WriteQueue::Take(std::size_t most)
{
    std::unique_lock lock(m_mutex);
    m_news.wait(lock, [this] { return m_closedSince || !m_jobs.empty(); });
    return TakeLocked(std::min(m_jobs.size(), most));
}

std::vector<WriteJob> WriteQueue::TakeAll()
{
    const std::lock_guard lock(m_mutex);
    return TakeLocked(m_jobs.size());
}

bool WriteQueue::Close()
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_closedSince) {
            return false;
        }
        m_closedSince = std::chrono::steady_clock::now();
    }
    m_news.notify_one();
    return true;
}

std::optional<std::chrono::steady_clock::time_point> WriteQueue::ClosedSince() const
{
    const std::lock_guard lock(m_mutex);
    return m_closedSince;
}

void WriteQueue::AwaitNews(std::chrono::milliseconds longest)
{
    std::unique_lock lock(m_mutex);
    m_news.wait_for(lock, longest);
}

std::vector<WriteJob> WriteQueue::TakeLocked(std::size_t count)
{
    const auto end = m_jobs.begin() + static_cast<std::ptrdiff_t>(count);
    std::vector<WriteJob> jobs(std::make_move_iterator(m_jobs.begin()), std::make_move_iterator(end));
    m_jobs.erase(m_jobs.begin(), end);
    return jobs;
}

} // namespace TLGateway
