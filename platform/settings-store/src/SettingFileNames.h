#pragma once

#include <QtCore/QString>

/// How the files beside a database are called: its name and one of these.
namespace SettingFileNames {

inline const QString Log = QStringLiteral("-wal");
inline const QString LogIndex = QStringLiteral("-shm");
inline const QString Journal = QStringLiteral("-journal");
inline const QString Lock = QStringLiteral(".lock");
inline const QString Draft = QStringLiteral(".new"); ///< of a fresh database that is not whole yet

} // namespace SettingFileNames
