#pragma once

#include <QtCore/QString>

/// The router URLs that this module answers or asks.
namespace AutoRunRouterUrls {

/// Answered here: the open tabs have changed.
inline QString Update()
{
    return QStringLiteral("tl://autorun/update");
}

/// Answered here: drop the record of the open tabs.
inline QString Clean()
{
    return QStringLiteral("tl://autorun/clean");
}

/// Answered here: record the open tabs for a restart. Parameter `ignore`: the router URL of the tab that
/// shall not come back.
inline QString RestartUpdate()
{
    return QStringLiteral("tl://autorun/restart/update");
}

/// Asked: the app list, a `TLPluginBaseManager`.
inline QString PluginsObject()
{
    return QStringLiteral("tl://plugins/object");
}

/// Asked: the function switches, a `TLFunctionData`.
inline QString FunctionsObject()
{
    return QStringLiteral("tl://funcdynamic/object");
}

} // namespace AutoRunRouterUrls
