#include "ProfileLock.h"

#include <QtCore/QDir>

namespace {

constexpr int Timeout = 5000; // [ms]

} // namespace

bool ProfileLock::Acquire(const QString& profile, QString* problem)
{
    if (!QDir().mkpath(profile)) {
        *problem = QStringLiteral("The profile folder \"%1\" cannot be made.").arg(profile);
        return false;
    }
    m_file = std::make_unique<QLockFile>(QDir(profile).filePath(QStringLiteral("client.lock")));
    m_file->setStaleLockTime(0); // the client holds it as long as it runs
    if (!TryToLock()) {
        *problem = QStringLiteral("The profile \"%1\" cannot be used: another client has it open, or the "
                                  "folder cannot be written to.")
                       .arg(profile);
        return false;
    }
    return true;
}

void ProfileLock::Release()
{
    m_file->unlock();
}

bool ProfileLock::TryToLock()
{
    if (m_file->tryLock(Timeout)) {
        return true;
    }
    qint64 processId = 0;
    QString host;
    QString program;
    // A client that was killed while it created the file left one that names nobody.
    const bool named = m_file->getLockInfo(&processId, &host, &program);
    return !named && m_file->removeStaleLockFile() && m_file->tryLock();
}
