#pragma once

#include "settings-store/SettingsStoreExport.h"

#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

class SettingDatabase;
struct SettingFileReport;

/// The client's settings: texts by section and field, kept per signed-in user (`TLGlobalData::GetPin()` at
/// the moment of the call; the empty pin while nobody is signed in), or for all users of the profile. One
/// SQLite file per client profile, which a thread of its own writes and one process at a time has open. All
/// operations are called on the GUI thread. Setting and getting never wait for the disk.
///
/// Any text can be a section or a field; names are compared exactly. All modules and the client share them,
/// so a module begins its section with a name of its own. To clear a value, store the empty text: an empty
/// value and a missing one read the same. The store copies all texts, so a module may be unloaded after it
/// set one.
class TL_SETTINGS_STORE_EXPORT VXSettingManager final : public QObject
{
    Q_OBJECT

public:
    /// The one object of the process.
    static VXSettingManager* Instance();

    /// Opens the store, makes the file and its folder when they are missing, and reads all values. Sets aside
    /// a file that is not a sound database as `<name>.damaged-<time>`, one of a later version of the store as
    /// `<name>.later-version-<time>`, and makes a fresh one with the values that it could still read
    /// (`SigStoreSetAside`). A single damaged value reads as if it had never been set (`SigValueDamaged`).
    /// Writes the values that were set before.
    ///
    /// False, with `SigStoreFailed`, when there can be no store, also while another process has this one
    /// open: values then stay in memory for the life of the process, so that nobody else has to care. Waits
    /// for the disk, 1 s for another process, and 2 s for a file that another program has locked.
    bool Open(const QString& databaseFile);
    /// Writes all waiting values, closes the file and forgets its values. Waits for as long as the disk
    /// takes. Called before the process ends, at the latest when the QCoreApplication is destroyed.
    void Close();

    /// The value, whether it is on disk yet or not. Empty when there is none.
    QString GetUserValue(const QString& section, const QString& field) const;
    /// Returns at once; writes only the last of several waiting values for one key.
    void SetUserValue(const QString& section, const QString& field, const QString& value);
    /// Returns when the value and all other waiting ones are on disk, after 5 s at the latest, and at once
    /// while the disk still owes the answer to a call that has waited that long. False when it is not on disk
    /// (`SigStoreFailed` says why, once for a lasting cause); the value then stays in memory and is written
    /// together with the next one.
    bool SetUserValueSync(const QString& section, const QString& field, const QString& value);

    /// The same for values that belong to no user.
    QString GetGlobalValue(const QString& section, const QString& field) const;
    void SetGlobalValue(const QString& section, const QString& field, const QString& value);
    bool SetGlobalValueSync(const QString& section, const QString& field, const QString& value);

    /// Returns when all waiting values are on disk, after 5 s at the latest, as above. False when one is not.
    bool Flush();

Q_SIGNALS:
    /// The store was damaged or of a later version. Its file is now called `setAsideFile`; `reason` tells the
    /// user in sentences what was wrong and what was kept. Emitted on the GUI thread.
    void SigStoreSetAside(const QString& setAsideFile, const QString& reason);
    /// A stored value does not match its checksum: it reads as missing, and its original is kept in the
    /// store's table `damaged_setting` or in the file that was set aside. Emitted once per value, from within
    /// `Open`, on the GUI thread. `user` is empty for a value of no user; any of the three names may itself
    /// be what is damaged.
    void SigValueDamaged(const QString& user, const QString& section, const QString& field);
    /// A write or the opening failed; `reason` is a sentence for the user. Emitted on the GUI thread.
    void SigStoreFailed(const QString& reason);

private:
    VXSettingManager();
    ~VXSettingManager() override;

    void Tell(const SettingFileReport& report);

    std::unique_ptr<SettingDatabase> m_database;
};
