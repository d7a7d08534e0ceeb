#pragma once

#include "settings-store/SettingsStoreExport.h"

#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

class SettingDatabase;
struct SettingFileReport;

/// Settings of the client: texts by section and field, kept per signed-in user (`TLGlobalData::GetPin()`
/// at the moment of the call; while nobody is signed in, under the empty pin), or for all users of the
/// profile. One SQLite file per client profile, written by one thread of its own. A byte order mark at the
/// beginning of a text does not reach the file.
/// All operations are called on the GUI thread.
class TL_SETTINGS_STORE_EXPORT VXSettingManager final : public QObject
{
    Q_OBJECT

public:
    /// The one object of the process.
    static VXSettingManager* Instance();

    /// Opens the store, making the file and its folder when they are missing, and reads all values. A file
    /// that is no sound database is set aside as `<name>.damaged-<time>` and a fresh one is made, with the
    /// values that could still be read (`SigStoreSetAside`).
    /// False, with `SigStoreFailed`, when no store can be had at all: values are then kept in memory for
    /// the life of the process, so that nothing else has to care. May wait 5 s for a file that another
    /// program has locked. Values set before the store was opened are written into it.
    bool Open(const QString& databaseFile);
    /// Writes all that waits, then closes the file; its values are forgotten. Called before the process
    /// ends, at the latest by the end of the QCoreApplication.
    void Close();

    /// A stored value, or one that still waits to be written. Empty when there is none.
    QString GetUserValue(const QString& section, const QString& field) const;
    /// Returns at once; of several waiting values for one key only the last is written.
    void SetUserValue(const QString& section, const QString& field, const QString& value);
    /// Returns when the value is on disk, with all others that wait. False when it could not be written
    /// (`SigStoreFailed` says why, once for a cause that lasts); the value is then kept in memory and
    /// written together with the next one.
    bool SetUserValueSync(const QString& section, const QString& field, const QString& value);

    /// The same for values that belong to no user.
    QString GetGlobalValue(const QString& section, const QString& field) const;
    void SetGlobalValue(const QString& section, const QString& field, const QString& value);
    bool SetGlobalValueSync(const QString& section, const QString& field, const QString& value);

    /// Returns when all that waits is on disk. False when something could not be written.
    bool Flush();

Q_SIGNALS:
    /// The store was damaged; its file now has the name `setAsideFile`. Delivered on the GUI thread.
    void SigStoreSetAside(const QString& setAsideFile, const QString& reason);
    /// A write or the opening failed; `reason` is a sentence for the user. Delivered on the GUI thread.
    void SigStoreFailed(const QString& reason);

private:
    VXSettingManager();
    ~VXSettingManager() override;

    void Tell(const SettingFileReport& report);

    std::unique_ptr<SettingDatabase> m_database;
};
