#pragma once

#include <QtCore/QString>

/// The router URLs that the client itself answers.
namespace ClientRouterUrls {

/// Opens a web page in a tab; parameters url, title, icon, isDelay ("1": loads when first selected).
inline const QString browserOpen = QStringLiteral("tl://browser/open");
/// Opens an app in a tab; parameters code, title, icon, isDelay.
inline const QString pluginOpen = QStringLiteral("tl://plugin/open");
/// Ends this process in good order and starts one that takes over its session. Parameters: "ignore", the
/// router URL of a tab that is not to come back; "tabs", "0" for none of them.
inline const QString clientRestart = QStringLiteral("tl://client/restart");
/// The app list, a `TLPluginBaseManager`.
inline const QString pluginsObject = QStringLiteral("tl://plugins/object");
/// The function switches, a `TLFunctionData`.
inline const QString functionsObject = QStringLiteral("tl://funcdynamic/object");

} // namespace ClientRouterUrls
