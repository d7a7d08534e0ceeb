#pragma once

#include <QtCore/QString>

/// How a web page is to be opened in a tab of its own.
struct TabOpenInfo
{
    QString address;       ///< http or https; anything else gives a tab that says so
    QString title;         ///< shown until the page says its own; may be empty
    QString iconUrl;       ///< shown until the page says its own; may be empty
    bool closable = true;  ///< whether the user can close the tab
    bool isDelay = false;  ///< a tab that loads when it is first selected
    bool activate = false; ///< bring the tab to the front
    bool remember = true;  ///< the tab has a router URL, so that it can be reopened
};
