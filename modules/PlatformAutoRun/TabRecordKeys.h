#pragma once

#include <QtCore/QString>

/// Where the records of open tabs stand among the signed-in user's settings. They are stored under these
/// names on users' machines, so none of them may change. An empty text there means that there is no record;
/// a record is dropped by storing the empty text.
///
/// None is a QStringLiteral: the settings store keeps the names, and outlives this module's code, in which
/// the characters of a literal stand.
namespace TabRecordKeys {

/// `TLTabRecoverData` as JSON.
inline QString RecoverSection()
{
    return QString::fromLatin1("USER_SETTING_RECOVER_SECTION");
}
inline QString RecoverField()
{
    return QString::fromLatin1("USER_SETTING_RECOVER_FIELD1");
}

/// `TLRestartRecord` as its text.
inline QString RestartSection()
{
    return QString::fromLatin1("USER_SETTING_RESTART_SECTION");
}
inline QString RestartField()
{
    return QString::fromLatin1("USER_SETTING_RESTART_FIELD");
}

} // namespace TabRecordKeys
