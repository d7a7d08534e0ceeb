#pragma once

#include <QtCore/QString>

/// The router URLs that this module handles or uses.
namespace AutoRunRouterUrls {

/// Handled here: the open tabs have changed.
inline QString Update()
{
    return QStringLiteral("tl://autorun/update");
}

/// Handled here: drop the record of the open tabs.
inline QString Clean()
{
    return QStringLiteral("tl://autorun/clean");
}

/// Handled here: record the open tabs for a restart. The parameter `ignore` is the router URL of the tab that
/// is not to come back.
inline QString RestartUpdate()
{
    return QStringLiteral("tl://autorun/restart/update");
}

/// Used: the app list, a `TLPluginBaseManager`.
inline QString PluginsObject()
{
    return QStringLiteral("tl://plugins/object");
}

/// Used: the function switches, a `TLFunctionData`.
inline QString FunctionsObject()
{
    return QStringLiteral("tl://funcdynamic/object");
}

} // namespace AutoRunRouterUrls
