#include "ui/AutoRunCustomItem.h"

#include "ui/AutoRunOperateWidget.h"

AutoRunCustomItem::AutoRunCustomItem(QWidget* parent) : AutoRunBaseItem(parent) {}

AutoRunCustomItem::~AutoRunCustomItem() = default;

int AutoRunCustomItem::GetItemKind() const
{
    return KindCustom;
}

QString AutoRunCustomItem::GetShowText() const
{
    const AutoRunInfoEntityPtr entry = GetData();
    return entry ? entry->url : QString();
}

QWidget* AutoRunCustomItem::GetOperateWidget()
{
    if (m_operateWidget == nullptr) {
        m_operateWidget = new AutoRunOperateWidget(this);
        connect(m_operateWidget, &AutoRunOperateWidget::SigEdit, this, &AutoRunCustomItem::SlotEdit);
        connect(m_operateWidget, &AutoRunOperateWidget::SigDelete, this, &AutoRunCustomItem::SlotDelete);
    }
    return m_operateWidget;
}

void AutoRunCustomItem::SlotEdit()
{
    Q_EMIT SigEditItem(this);
}

void AutoRunCustomItem::SlotDelete()
{
    Q_EMIT SigDeleteItem(this);
}
