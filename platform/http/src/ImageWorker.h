#pragma once

#include <QtCore/QObject>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

/// A thread that does one job after another. One other thread, the owner's, makes, uses and destroys it.
class ImageWorker final : public QObject
{
    Q_OBJECT

public:
    /// What remains to be done in the owner's event loop after a job.
    using Completion = std::function<void()>;
    using Job = std::function<Completion()>;

    ImageWorker();
    /// Waits for the current job; drops the other jobs and all completions.
    ~ImageWorker() override;

    /// The thread starts with the first job.
    void Post(Job job);

private:
    void Run();
    /// A completion may destroy this object.
    void RunCompletions();

    std::thread m_thread;

    std::mutex m_mutex; // guards everything below
    std::condition_variable m_wake;
    std::deque<Job> m_jobs;
    std::deque<Completion> m_completions;
    bool m_stop = false;
};
