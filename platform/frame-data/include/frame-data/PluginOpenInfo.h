#pragma once

#include <QtCore/QString>

/// How an app is to be opened. Constructed empty.
struct PluginOpenInfo
{
    QString activation;   ///< "0" or empty: in the background; "1": and brought to the front
    QString source;       ///< who asks, for the client's statistics
    QString serviceCode;  ///< the app's key in the app list
    QString title;        ///< shown until the app says its own; empty: the app's name
    QString iconUrl;      ///< shown until the app says its own; empty: the app's icon
    bool isDelay = false; ///< a tab that loads when it is first selected
};
