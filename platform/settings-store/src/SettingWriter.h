#pragma once

#include "SettingFileReport.h"
#include "SettingKey.h"

#include <QtCore/QCoreApplication>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// The thread that owns the file. Values are queued for it, the last one of a key counting; what could
/// not be written waits on and is tried again with the next value, `Flush` or `Stop`.
/// The operations are called on one other thread.
class SettingWriter final
{
    Q_DECLARE_TR_FUNCTIONS(SettingWriter)

public:
    /// Called on the writer's own thread after a write that the user must hear of: a file set aside, or a
    /// failure other than that of the write before. Called on the other one when a flush was given up.
    using Notify = std::function<void(const SettingFileReport&)>;

    SettingWriter(const QString& path, Notify notify);
    ~SettingWriter();

    SettingWriter(const SettingWriter&) = delete;
    SettingWriter& operator=(const SettingWriter&) = delete;

    /// Called once, first. Returns when the file is open and its values are read. After a failure nothing
    /// else may be called.
    [[nodiscard]] SettingFileReport Start(SettingValues* values);
    void Queue(const SettingKey& key, const QString& value);
    /// Whether something is not on disk yet.
    bool HasWaiting() const;
    /// Returns after an attempt to write all that waits. False when it failed, or was not over after 5 s;
    /// while it still is not, further flushes do not wait.
    [[nodiscard]] bool Flush();
    /// Writes all that waits, closes the file and ends the thread.
    void Stop();

private:
    void Run();

    const QString m_path;
    const Notify m_notify;
    std::thread m_thread;

    mutable std::mutex m_mutex; // guards all that follows
    std::condition_variable m_wake;
    std::condition_variable m_done;
    bool m_opened = false;
    SettingFileReport m_openReport;
    SettingValues m_loaded;
    SettingValues m_waiting;
    bool m_attemptWanted = false;
    bool m_hurry = false;
    bool m_stop = false;
    bool m_isStalled = false; // a flush was given up, and the writer is still at it
    quint64 m_queued = 0;     // counts the values and flushes
    quint64 m_attempted = 0;  // up to which of them there was an attempt,
    quint64 m_written = 0;    // and up to which all is on disk
};
