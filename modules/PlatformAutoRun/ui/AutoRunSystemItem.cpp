#include "ui/AutoRunSystemItem.h"

AutoRunSystemItem::AutoRunSystemItem(QWidget* parent) : AutoRunBaseItem(parent) {}

AutoRunSystemItem::~AutoRunSystemItem() = default;

int AutoRunSystemItem::GetItemKind() const
{
    return KindSystem;
}
