#pragma once

#include <QtCore/QString>

/// The keys of the tab records among the signed-in user's settings. They are stored on users' machines, so
/// none of them may change. An empty text means that there is no record; storing the empty text drops a
/// record.
///
/// None of them is a QStringLiteral: the settings store keeps the names and outlives this module's code,
/// which holds a literal's characters.
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
