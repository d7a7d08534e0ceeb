#pragma once

#include <QtCore/QString>

/// How the files beside a database are called: its name and one of these.
namespace SettingFileNames {

inline const QString log = QStringLiteral("-wal");
inline const QString logIndex = QStringLiteral("-shm");
inline const QString journal = QStringLiteral("-journal");
inline const QString lock = QStringLiteral(".lock");
inline const QString draft = QStringLiteral(".new"); ///< of a fresh database that is not whole yet

} // namespace SettingFileNames
