#include "TabRecoverItem.h"

TabRecoverItem::TabRecoverItem(QObject* parent) : VXJsonParserBase(parent) {}

TabRecoverItem::TabRecoverItem(const TabRecoverItem& other) = default;

TabRecoverItem& TabRecoverItem::operator=(const TabRecoverItem& other) = default;

TabRecoverItem::~TabRecoverItem() = default;

bool TabRecoverItem::operator==(const TabRecoverItem& other) const
{
    return routerUrl == other.routerUrl && title == other.title && icon == other.icon && type == other.type;
}

bool TabRecoverItem::operator!=(const TabRecoverItem& other) const
{
    return !(*this == other);
}
