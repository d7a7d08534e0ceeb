#pragma once

#include "tab-container/TabType.h"

#include <QtCore/QString>

/// A tab of an earlier run that can be opened again. Title and address come from pages: plain text.
struct EarlierTab
{
    QString routerUrl; ///< opens it
    QString title;     ///< may be empty
    QString address;   ///< as a person reads it; empty for an app
    QString iconUrl;   ///< may be empty
    int type = TabType::WebPage;

    bool operator==(const EarlierTab& other) const
    {
        return routerUrl == other.routerUrl && title == other.title && address == other.address &&
               iconUrl == other.iconUrl && type == other.type;
    }
};
