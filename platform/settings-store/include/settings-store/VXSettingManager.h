#pragma once

#include "settings-store/SettingsStoreExport.h"

#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

class SettingDatabase;
struct SettingFileReport;

/// Settings of the client: texts by section and field, kept per signed-in user (`TLGlobalData::GetPin()`
/// at the moment of the call; while nobody is signed in, under the empty pin), or for all users of the
/// profile. One SQLite file per client profile, written by one thread of its own and open in one process
/// at a time. The store keeps copies of its own of all texts: a module may be unloaded after it set one.
/// All operations are called on the GUI thread. Setting and getting never wait for the disk.
class TL_SETTINGS_STORE_EXPORT VXSettingManager final : public QObject
{
    Q_OBJECT

public:
    /// The one object of the process.
    static VXSettingManager* Instance();

    /// Opens the store, making the file and its folder when they are missing, and reads all values. A file
    /// that is no sound database is set aside as `<name>.damaged-<time>`, one of a later version of the
    /// store as `<name>.later-version-<time>`, and a fresh one is made, with the values that could still be
    /// read (`SigStoreSetAside`). A single damaged value reads as if it had never been set
    /// (`SigValueDamaged`).
    /// False, with `SigStoreFailed`, when no store can be had at all, also while another process has this
    /// one open: values are then kept in memory for the life of the process, so that nothing else has to
    /// care. Waits for the disk, for 1 s for the other process, and for 2 s for a file that another program
    /// has locked. Values set before the store was opened are written into it.
    bool Open(const QString& databaseFile);
    /// Writes all that waits, then closes the file; its values are forgotten. Waits for as long as the disk
    /// takes. Called before the process ends, at the latest by the end of the QCoreApplication.
    void Close();

    /// A stored value, or one that still waits to be written. Empty when there is none.
    QString GetUserValue(const QString& section, const QString& field) const;
    /// Returns at once; of several waiting values for one key only the last is written.
    void SetUserValue(const QString& section, const QString& field, const QString& value);
    /// Returns when the value is on disk, with all others that wait; after at most 5 s, and at once while
    /// the disk still owes the answer to a call that has waited so long. False when it is not on disk
    /// (`SigStoreFailed` says why, once for a cause that lasts); the value is then kept in memory and
    /// written together with the next one.
    bool SetUserValueSync(const QString& section, const QString& field, const QString& value);

    /// The same for values that belong to no user.
    QString GetGlobalValue(const QString& section, const QString& field) const;
    void SetGlobalValue(const QString& section, const QString& field, const QString& value);
    bool SetGlobalValueSync(const QString& section, const QString& field, const QString& value);

    /// Returns when all that waits is on disk, after at most 5 s as above. False when something is not.
    bool Flush();

Q_SIGNALS:
    /// The store was damaged or of a later version; its file now has the name `setAsideFile`, and `reason`
    /// says in sentences for the user what was wrong and what was kept. Delivered on the GUI thread.
    void SigStoreSetAside(const QString& setAsideFile, const QString& reason);
    /// A stored value does not have the checksum that it was stored with: it reads as not there, and its
    /// original is kept in the store's table `damaged_setting`, or in the file that was set aside. Told once
    /// for each value, from within `Open`, on the GUI thread. `user` is empty for a value of no user; each
    /// of the names may be what is damaged.
    void SigValueDamaged(const QString& user, const QString& section, const QString& field);
    /// A write or the opening failed; `reason` is a sentence for the user. Delivered on the GUI thread.
    void SigStoreFailed(const QString& reason);

private:
    VXSettingManager();
    ~VXSettingManager() override;

    void Tell(const SettingFileReport& report);

    std::unique_ptr<SettingDatabase> m_database;
};
