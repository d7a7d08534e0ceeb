#pragma once

#include <QtCore/QString>

/// The router URLs that the client itself answers, in addition to `TabRouterUrls`.
namespace ClientRouterUrls {

/// Ends this process in good order and starts one that takes over its session. Parameters: "ignore" is the
/// router URL of a tab that does not come back; "tabs" is "0" if none come back.
inline const QString ClientRestart = QStringLiteral("tl://client/restart");
/// The app list, a `TLPluginBaseManager`.
inline const QString PluginsObject = QStringLiteral("tl://plugins/object");
/// The function switches, a `TLFunctionData`.
inline const QString FunctionsObject = QStringLiteral("tl://funcdynamic/object");

} // namespace ClientRouterUrls
