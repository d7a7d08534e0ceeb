#pragma once

#include <QtCore/QString>

/// How to open an app. Empty by default.
struct PluginOpenInfo
{
    QString activation;   ///< "0" or empty: in the background; "1": in front
    QString source;       ///< who opens it, for the client's statistics
    QString serviceCode;  ///< the app's key in the app list
    QString title;        ///< shown until the app says its own; empty: the app's name
    QString iconUrl;      ///< shown until the app says its own; empty: the app's icon
    bool isDelay = false; ///< a tab that loads when it is first selected
};
