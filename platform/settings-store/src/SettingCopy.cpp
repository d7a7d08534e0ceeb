#include "SettingCopy.h"

#include "SettingFileNames.h"

#include <QtCore/QFile>

namespace {

bool CopyIfThere(const QString& file, const QString& copy)
{
    return !QFile::exists(file) ||
           (QFile::copy(file, copy) && QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner));
}

} // namespace

SettingCopy::SettingCopy(const QString& file)
{
    const QString copy = GetPathOf(QStringLiteral("copy"));
    if (m_folder.isValid() && CopyIfThere(file, copy) &&
        CopyIfThere(file + SettingFileNames::Log, copy + SettingFileNames::Log)) {
        m_file = copy;
    }
}

QString SettingCopy::GetFile() const
{
    return m_file;
}

QString SettingCopy::GetPathOf(const QString& name) const
{
    return m_folder.filePath(name);
}
