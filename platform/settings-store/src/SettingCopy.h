#pragma once

#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

/// A copy of a database and its log in a folder of its own, removed with the object. When SQLite closes a
/// file, it writes the log into the database, and it discards a log beside an empty database. So we examine a
/// copy of what may be damaged, and the original stays as it was found.
class SettingCopy final
{
public:
    explicit SettingCopy(const QString& file);

    SettingCopy(const SettingCopy&) = delete;
    SettingCopy& operator=(const SettingCopy&) = delete;

    /// Empty when the copy could not be made.
    QString GetFile() const;
    /// A path beside the copy.
    QString GetPathOf(const QString& name) const;

private:
    QTemporaryDir m_folder;
    QString m_file;
};
