#include "ImageWorker.h"

#include <QtCore/QPointer>

#include <utility>

ImageWorker::ImageWorker() = default;

ImageWorker::~ImageWorker()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_stop = true;
        m_wake.notify_one();
    }
    if (m_thread.joinable()) {
        m_thread.join();
    }
}

void ImageWorker::Post(Job job)
{
    if (!m_thread.joinable()) {
        m_thread = std::thread([this] { Run(); });
    }
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_jobs.push_back(std::move(job));
    m_wake.notify_one();
}

void ImageWorker::Run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        m_wake.wait(lock, [this] { return m_stop || !m_jobs.empty(); });
        if (m_stop) {
            return;
        }
        Job job = std::move(m_jobs.front());
        m_jobs.pop_front();

        lock.unlock();
        Completion completion = job();
        job = Job();
        lock.lock();

        const bool first = m_completions.empty();
        m_completions.push_back(std::move(completion));
        if (first) {
            QMetaObject::invokeMethod(this, &ImageWorker::RunCompletions, Qt::QueuedConnection);
        }
    }
}

void ImageWorker::RunCompletions()
{
    std::deque<Completion> completions;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        completions.swap(m_completions);
    }
    const QPointer<ImageWorker> self(this);
    for (const Completion& completion : completions) {
        if (!self) {
            return;
        }
        completion();
    }
}
