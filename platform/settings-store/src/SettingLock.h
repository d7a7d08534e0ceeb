#pragma once

#include <QtCore/QString>

/// Keeps a store to one process, so that none overwrites what the other has in memory. The system itself
/// takes the lock back when the process ends in any way; only the empty file that carries it stays.
/// Made, used and destroyed on one thread.
class SettingLock final
{
public:
    explicit SettingLock(const QString& file);
    ~SettingLock();

    SettingLock(const SettingLock&) = delete;
    SettingLock& operator=(const SettingLock&) = delete;

    /// Waits for at most a second. False only when another process has the lock: where no lock can be had
    /// at all, as in a folder that cannot be written to, there is nothing to guard.
    [[nodiscard]] bool Take();

private:
    bool TryOnce(bool* isDamaged);

    const QString m_file;
    QString m_connection; // empty while the lock is not held
};
