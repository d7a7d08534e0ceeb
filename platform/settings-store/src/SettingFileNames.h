#pragma once

#include <QtCore/QString>

/// What to append to a database's name for the files beside it.
namespace SettingFileNames {

inline const QString Log = QStringLiteral("-wal");
inline const QString LogIndex = QStringLiteral("-shm");
inline const QString Journal = QStringLiteral("-journal");
inline const QString Lock = QStringLiteral(".lock");
inline const QString Draft = QStringLiteral(".new"); ///< of a fresh database that is not complete yet

} // namespace SettingFileNames
