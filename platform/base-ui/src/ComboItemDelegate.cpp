#include "ComboItemDelegate.h"

#include "Scaled.h"
#include "ThemedColor.h"

#include <QtGui/QHelpEvent>
#include <QtGui/QIcon>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QToolTip>

namespace {

// [px, unscaled]
constexpr int Inset = 8;
constexpr int Gap = 8;
constexpr int CornerRadius = 4;

QRect GetInner(const QRect& row)
{
    return row.adjusted(Scaled(Inset), 0, -Scaled(Inset), 0);
}

} // namespace

ComboItemDelegate::ComboItemDelegate(QComboBox* combo) : QStyledItemDelegate(combo), m_combo(combo) {}

ComboItemDelegate::~ComboItemDelegate() = default;

void ComboItemDelegate::SetRowHeight(int height)
{
    m_rowHeight = height;
}

void ComboItemDelegate::PaintItem(QPainter* painter, const QRect& area, Qt::LayoutDirection direction,
                                  const QSize& iconSize, const QIcon& icon, const QString& text, bool enabled)
{
    const Qt::Alignment start = QStyle::visualAlignment(direction, Qt::AlignLeft) | Qt::AlignVCenter;
    QRect rest = area;
    if (!icon.isNull()) {
        const QRect picture =
            QStyle::alignedRect(direction, Qt::AlignLeft | Qt::AlignVCenter, iconSize, area);
        icon.paint(painter, picture, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
        rest = QStyle::visualRect(direction, area, area.adjusted(iconSize.width() + Scaled(Gap), 0, 0, 0));
    }
    painter->drawText(rest, int(start) | Qt::TextSingleLine,
                      painter->fontMetrics().elidedText(text, Qt::ElideRight, rest.width()));
}

void ComboItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const
{
    const QPalette& colors = option.palette;
    const bool chosen = (option.state & QStyle::State_Selected) != 0;
    const bool enabled = (option.state & QStyle::State_Enabled) != 0;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setFont(option.font);
    if (chosen) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(
            ThemedColor(m_combo->property("rowColor").value<QColor>(), colors, QPalette::Highlight));
        painter->drawRoundedRect(option.rect, Scaled(CornerRadius), Scaled(CornerRadius));
    }
    painter->setPen(ThemedColor(m_combo->property("rowTextColor").value<QColor>(), colors,
                                chosen ? QPalette::HighlightedText : QPalette::Text));
    PaintItem(painter, GetInner(option.rect), option.direction, m_combo->iconSize(),
              index.data(Qt::DecorationRole).value<QIcon>(), index.data().toString(), enabled);
    painter->restore();
}

QSize ComboItemDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const
{
    // Never wider than the list, so that long names end in an ellipsis inside it.
    return {0, qMax(Scaled(m_rowHeight), option.fontMetrics.height() + 2 * Scaled(4))};
}

int ComboItemDelegate::GetNeededWidth(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const int text = option.fontMetrics.horizontalAdvance(index.data().toString());
    const bool hasIcon = !index.data(Qt::DecorationRole).value<QIcon>().isNull();
    const int icon = hasIcon ? m_combo->iconSize().width() + Scaled(Gap) : 0;
    return text + icon + 2 * Scaled(Inset);
}

bool ComboItemDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                  const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (event->type() == QEvent::ToolTip && index.data(Qt::ToolTipRole).isNull() &&
        GetNeededWidth(option, index) > option.rect.width()) {
        // A tool tip guesses whether its text is HTML; a paragraph leaves nothing to guess.
        QToolTip::showText(event->globalPos(),
                           QStringLiteral("<p>%1</p>").arg(index.data().toString().toHtmlEscaped()), view);
        return true;
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}
