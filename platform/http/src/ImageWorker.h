#pragma once

#include <QtCore/QObject>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

/// A thread that does one job after the other. Made, used and destroyed on one other thread, the owner's.
class ImageWorker final : public QObject
{
    Q_OBJECT

public:
    /// What a job leaves to be done in the owner's event loop.
    using Completion = std::function<void()>;
    using Job = std::function<Completion()>;

    ImageWorker();
    /// Waits for the job that is being done; the other jobs and all completions are dropped.
    ~ImageWorker() override;

    /// The thread starts with the first job.
    void Post(Job job);

private:
    void Run();
    /// A completion may destroy this object.
    void RunCompletions();

    std::thread m_thread;

    std::mutex m_mutex; // guards all that follows
    std::condition_variable m_wake;
    std::deque<Job> m_jobs;
    std::deque<Completion> m_completions;
    bool m_stop = false;
};
