#pragma once

#include <QtCore/QString>

/// What is kept of a tab so that it can be opened again.
struct KeptTab
{
    QString routerUrl; ///< opens it
    QString title;     ///< may be empty
    QString iconUrl;   ///< may be empty
    int type = 0;      ///< one of `TabType`

    bool operator==(const KeptTab& other) const
    {
        return routerUrl == other.routerUrl && title == other.title && iconUrl == other.iconUrl &&
               type == other.type;
    }
    bool operator!=(const KeptTab& other) const { return !(*this == other); }
};
