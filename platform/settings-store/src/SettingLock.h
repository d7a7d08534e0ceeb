#pragma once

#include <QtCore/QString>

/// Limits a store to one process, so that none overwrites what another has in memory. The system releases the
/// lock however the process ends; only the empty lock file stays. Made, used and destroyed on one thread.
class SettingLock final
{
public:
    explicit SettingLock(const QString& file);
    ~SettingLock();

    SettingLock(const SettingLock&) = delete;
    SettingLock& operator=(const SettingLock&) = delete;

    /// Waits for a second at most. False only when another process has the lock: where locking is impossible,
    /// as in a read-only folder, there is nothing to guard.
    [[nodiscard]] bool Take();

private:
    bool TryOnce(bool* isDamaged);

    const QString m_file;
    QString m_connection; // empty while the lock is not held
};
