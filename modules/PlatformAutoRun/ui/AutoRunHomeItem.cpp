#include "ui/AutoRunHomeItem.h"

AutoRunHomeItem::AutoRunHomeItem(QWidget* parent) : AutoRunBaseItem(parent) {}

AutoRunHomeItem::~AutoRunHomeItem() = default;

int AutoRunHomeItem::GetItemKind() const
{
    return KindHome;
}

bool AutoRunHomeItem::IsCheckLocked() const
{
    return true;
}
