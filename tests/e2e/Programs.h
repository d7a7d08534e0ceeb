#pragma once

#include <QtCore/QString>

/// The paths of the built programs, from CMake.
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
/// The folder of a module that exists only for tests.
inline QString FixtureModule(const QString& name)
{
    return QStringLiteral(TL_FIXTURE_MODULE_DIR "/") + name;
}
} // namespace Programs
