#pragma once

#include <QtCore/QString>

/// Where the built programs are; set by CMake.
namespace Programs {
inline QString Client()
{
    return QStringLiteral(TL_CLIENT_PROGRAM);
}
inline QString Gateway()
{
    return QStringLiteral(TL_GATEWAY_PROGRAM);
}
inline QString Modules()
{
    return QStringLiteral(TL_MODULES_FOLDER);
}
/// The folder of one of the modules that exist for tests alone.
inline QString FixtureModule(const QString& name)
{
    return QStringLiteral(TL_FIXTURE_MODULE_DIR "/") + name;
}
} // namespace Programs
