#pragma once

#include <QtCore/QLockFile>
#include <QtCore/QString>

#include <memory>

/// Keeps the client profile to one client at a time. GUI thread.
class ProfileLock final
{
public:
    /// Creates the folder if needed and locks it until `Release` or the end of the process. On failure,
    /// returns false with a sentence in `problem`.
    bool Acquire(const QString& profile, QString* problem);
    void Release();

private:
    bool TryToLock();

    std::unique_ptr<QLockFile> m_file;
};
