#pragma once

#include "tab-container/TabType.h"

#include <QtCore/QString>
#include <QtCore/QUrl>

/// What a tab is, from its opening to its end: enough to show it before it loads, to store it and to open it
/// again. Title and icon come from pages: plain text, not to be trusted.
struct TabRecord
{
    enum class Trouble
    {
        None,
        RefusedAddress,   ///< `text` is the address
        UnknownApp,       ///< no app has the key `serviceCode`
        RefusedAppAddress ///< the app's address, `text`, is one that the client does not open
    };

    /// Opens the tab again; empty for a tab that cannot come back (home, start page, trouble).
    QString routerUrl{};
    /// Of an opening: shown until the page gives its own, and may be empty. Of an open tab: as shown.
    QString title{};
    QString iconUrl{}; ///< likewise
    int type = TabType::WebPage;

    QUrl address{};        ///< of its page; empty: a start page, a native app, a trouble, or not known here
    QString serviceCode{}; ///< of an app, else empty
    QString appName{};     ///< by the app list, where the opener gave no title
    QString appIconUrl{};  ///< likewise
    Trouble trouble = Trouble::None;
    QString text{}; ///< what `trouble` says
    bool closable = true;
    bool delayed = false; ///< waits for its first selection, whatever the tab then shows
    bool remember = true; ///< false: the user did not choose it, and it is not stored

    bool operator==(const TabRecord& other) const
    {
        return routerUrl == other.routerUrl && title == other.title && iconUrl == other.iconUrl &&
               type == other.type && address == other.address && serviceCode == other.serviceCode &&
               appName == other.appName && appIconUrl == other.appIconUrl && trouble == other.trouble &&
               text == other.text && closable == other.closable && delayed == other.delayed &&
               remember == other.remember;
    }
    bool operator!=(const TabRecord& other) const { return !(*this == other); }
};

// Lists of a thousand tabs insert and remove by moving memory.
Q_DECLARE_TYPEINFO(TabRecord, Q_MOVABLE_TYPE);
