#pragma once

#include <QtCore/QLockFile>
#include <QtCore/QString>

#include <memory>

/// Keeps the client profile to one client at a time. GUI thread.
class ProfileLock final
{
public:
    /// Makes the folder where there is none and locks it, until `Release` or the end of the process. False,
    /// with a sentence in `problem`, when that cannot be done.
    bool Acquire(const QString& profile, QString* problem);
    void Release();

private:
    bool TryToLock();

    std::unique_ptr<QLockFile> m_file;
};
