#include "PageListDelegate.h"

#include <QtWidgets/QWidget>

PageListDelegate::PageListDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

PageListDelegate::~PageListDelegate() = default;

void PageListDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (!option->state.testFlag(QStyle::State_Selected) || option->icon.isNull() ||
        option->widget == nullptr) {
        return;
    }
    const QPixmap usual =
        option->icon.pixmap(option->widget->window()->windowHandle(), option->decorationSize, QIcon::Normal);
    QIcon icon;
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected}) {
        icon.addPixmap(usual, mode);
    }
    option->icon = icon;
}
