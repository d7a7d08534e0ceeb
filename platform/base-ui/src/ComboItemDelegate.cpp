#include "ComboItemDelegate.h"

#include "Scaled.h"

#include <QtGui/QHelpEvent>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QToolTip>

ComboItemDelegate::ComboItemDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

ComboItemDelegate::~ComboItemDelegate() = default;

void ComboItemDelegate::SetRowHeight(int height)
{
    m_rowHeight = height;
}

QSize ComboItemDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return {size.width(), qMax(Scaled(m_rowHeight), option.fontMetrics.height() + 2 * Scaled(4))};
}

bool ComboItemDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                  const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (event->type() == QEvent::ToolTip && index.data(Qt::ToolTipRole).isNull() &&
        QStyledItemDelegate::sizeHint(option, index).width() > option.rect.width()) {
        QToolTip::showText(event->globalPos(), index.data().toString().toHtmlEscaped(), view);
        return true;
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}
