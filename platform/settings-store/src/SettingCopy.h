#pragma once

#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

/// A copy of a database and its log in a folder of its own, gone with the object. SQLite writes the log
/// into the database when a file is closed, and throws it away beside an empty one: what may be damaged is
/// looked at in a copy, so that the original stays as it was found.
class SettingCopy final
{
public:
    explicit SettingCopy(const QString& file);

    SettingCopy(const SettingCopy&) = delete;
    SettingCopy& operator=(const SettingCopy&) = delete;

    /// Empty when the copy could not be made.
    QString GetFile() const;
    /// A place beside the copy.
    QString GetPathOf(const QString& name) const;

private:
    QTemporaryDir m_folder;
    QString m_file;
};
