#pragma once

#include <QtCore/QString>

/// The router URLs that open a tab. A tab's own router URL is one of them, so that it brings the tab back.
namespace TabRouterUrls {

/// Opens a web page; parameters url, title, icon, isDelay ("1": loads when first selected).
inline const QString BrowserOpen = QStringLiteral("tl://browser/open");
/// Opens an app; parameters code, title, icon, isDelay.
inline const QString PluginOpen = QStringLiteral("tl://plugin/open");

} // namespace TabRouterUrls
