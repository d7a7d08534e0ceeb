#pragma once

#include "tab-container/TabType.h"

#include <QtCore/QString>
#include <QtCore/QUrl>

/// How a tab began; enough to make it again.
struct TabOrigin
{
    enum class Trouble
    {
        None,
        RefusedAddress,   ///< `text` is the address
        UnknownApp,       ///< no app has the key `serviceCode`
        RefusedAppAddress ///< the app's address, `text`, is one that the client does not open
    };

    int type = TabType::WebPage;
    QString title;   ///< given by the opener; shown until the page says its own; may be empty
    QString iconUrl; ///< likewise
    QString appName; ///< by the app list, where the opener gave no title
    QString appIconUrl;
    QUrl address;        ///< empty: a start page, a native app or a trouble
    QString serviceCode; ///< of an app, else empty
    Trouble trouble = Trouble::None;
    QString text;
    bool closable = true;
    bool delayed = false; ///< waits for its first selection, whatever the tab then shows
    bool remember = true;
};
