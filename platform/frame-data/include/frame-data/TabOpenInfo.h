#pragma once

#include <QtCore/QString>

/// How to open a web page in a tab of its own.
struct TabOpenInfo
{
    QString address;       ///< http or https; anything else opens a tab that says so
    QString title;         ///< shown until the page says its own; may be empty
    QString iconUrl;       ///< shown until the page says its own; may be empty
    bool closable = true;  ///< whether the user can close the tab
    bool isDelay = false;  ///< a tab that loads when it is first selected
    bool activate = false; ///< brings the tab to the front
    bool remember = true;  ///< the tab has a router URL, so that it can be reopened
};
