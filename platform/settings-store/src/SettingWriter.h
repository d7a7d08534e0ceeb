#pragma once

#include "SettingFileReport.h"
#include "SettingKey.h"

#include <QtCore/QCoreApplication>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// The thread that owns the file. It writes queued values, the last one per key; those that could not be
/// written wait for the next value, `Flush` or `Stop`. One other thread calls the operations.
class SettingWriter final
{
    Q_DECLARE_TR_FUNCTIONS(SettingWriter)

public:
    /// Called on the writer's own thread after a write that concerns the user: a file was set aside, or a
    /// failure differs from the previous one. Called on the other thread when a flush was given up.
    using Notify = std::function<void(const SettingFileReport&)>;

    SettingWriter(const QString& path, Notify notify);
    ~SettingWriter();

    SettingWriter(const SettingWriter&) = delete;
    SettingWriter& operator=(const SettingWriter&) = delete;

    /// Call once, before anything else. Returns when the file is open and its values are read. After a
    /// failure nothing else may be called.
    [[nodiscard]] SettingFileReport Start(SettingValues* values);
    void Queue(const SettingKey& key, const QString& value);
    /// Whether a value is not on disk yet.
    bool HasWaiting() const;
    /// Returns after an attempt to write all waiting values. False when it failed, or was not over after 5 s;
    /// until it is over, further flushes do not wait.
    [[nodiscard]] bool Flush();
    /// Writes all waiting values, closes the file and ends the thread.
    void Stop();

private:
    void Run();

    const QString m_path;
    const Notify m_notify;
    std::thread m_thread;

    mutable std::mutex m_mutex; // guards everything below
    std::condition_variable m_wake;
    std::condition_variable m_done;
    bool m_opened = false;
    SettingFileReport m_openReport;
    SettingValues m_loaded;
    SettingValues m_waiting;
    bool m_attemptWanted = false;
    bool m_hurry = false;
    bool m_stop = false;
    bool m_isStalled = false; // a flush was given up, and the writer is still busy
    quint64 m_queued = 0;     // number of the last value or flush
    quint64 m_attempted = 0;  // the last one that was attempted
    quint64 m_written = 0;    // the last one up to which everything is on disk
};
