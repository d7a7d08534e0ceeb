#include "EarlierTabsDelegate.h"

#include "EarlierTabsModel.h"
#include "look/Scaled.h"

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QIcon>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QWidget>

namespace {

constexpr int BoxSize = 16;  // [px]
constexpr int IconSize = 16; // [px]
constexpr int Edge = 8;      // at both ends of a row [px]
constexpr int Gap = 10;      // between its parts [px]
constexpr int Pad = 6;       // above and below the text [px]
constexpr int LineGap = 2;   // between its lines [px]

QRect GetBoxRect(const QStyleOptionViewItem& option)
{
    const QRect& row = option.rect;
    const QRect box(row.left() + Scaled(Edge), row.top() + (row.height() - Scaled(BoxSize)) / 2,
                    Scaled(BoxSize), Scaled(BoxSize));
    return QStyle::visualRect(option.direction, row, box);
}

} // namespace

EarlierTabsDelegate::EarlierTabsDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

void EarlierTabsDelegate::paint(QPainter* painter, const QStyleOptionViewItem& given,
                                const QModelIndex& index) const
{
    QStyleOptionViewItem option(given);
    const QStyle* const style = option.widget->style();
    // The theme draws ground, hover and focus; see #earlier_tabs_tree::item.
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);

    const QVariant state = index.data(Qt::CheckStateRole);
    if (state.isValid()) {
        QStyleOptionViewItem box(option);
        box.rect = GetBoxRect(option);
        box.state.setFlag(QStyle::State_On, state.toInt() == Qt::Checked);
        box.state.setFlag(QStyle::State_Off, state.toInt() == Qt::Unchecked);
        box.state.setFlag(QStyle::State_NoChange, state.toInt() == Qt::PartiallyChecked);
        style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter, option.widget);
    }

    QRect room = option.rect.adjusted(Scaled(Edge) + Scaled(BoxSize) + Scaled(Gap), Scaled(Pad),
                                      -Scaled(Edge), -Scaled(Pad));
    const auto icon = index.data(Qt::DecorationRole).value<QIcon>();
    if (!icon.isNull()) {
        const QRect place(room.left(), room.top() + (room.height() - Scaled(IconSize)) / 2, Scaled(IconSize),
                          Scaled(IconSize));
        icon.paint(painter, QStyle::visualRect(option.direction, option.rect, place));
        room.setLeft(place.right() + 1 + Scaled(Gap));
    }
    room = QStyle::visualRect(option.direction, option.rect, room);

    painter->save();
    const bool isSet = !index.parent().isValid();
    QFont font = option.font;
    if (isSet) {
        font.setWeight(QFont::DemiBold);
    }
    const int align = int(QStyle::visualAlignment(option.direction, Qt::AlignLeft)) | Qt::TextSingleLine;
    const QRect upper(room.left(), room.top(), room.width(), option.fontMetrics.height());
    const QRect lower(room.left(), room.bottom() + 1 - option.fontMetrics.height(), room.width(),
                      option.fontMetrics.height());
    painter->setFont(font);
    painter->setPen(option.palette.color(QPalette::Text));
    painter->drawText(
        upper, align,
        QFontMetrics(font).elidedText(index.data(Qt::DisplayRole).toString(), Qt::ElideRight, upper.width()));
    painter->setFont(option.font);
    // From the application: a theme that gives the view a text colour takes this one from its palette.
    painter->setPen(QGuiApplication::palette().color(QPalette::PlaceholderText));
    painter->drawText(lower, align,
                      option.fontMetrics.elidedText(index.data(EarlierTabsModel::DetailRole).toString(),
                                                    isSet ? Qt::ElideRight : Qt::ElideMiddle, lower.width()));
    painter->restore();
}

QSize EarlierTabsDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    Q_UNUSED(index)
    return {0, 2 * option.fontMetrics.height() + Scaled(LineGap) + 2 * Scaled(Pad)};
}

bool EarlierTabsDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                      const QStyleOptionViewItem& option, const QModelIndex& index)
{
    auto* const tabs = qobject_cast<EarlierTabsModel*>(model);
    if (!tabs) {
        return false;
    }
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Space && key != Qt::Key_Select) {
            return false;
        }
        tabs->Toggle(index);
        return true;
    }
    // A double click is two clicks: the second takes back what the first did, as with any check box.
    if (event->type() != QEvent::MouseButtonRelease) {
        return event->type() == QEvent::MouseButtonDblClick && index.parent().isValid();
    }
    const auto* const mouse = static_cast<QMouseEvent*>(event);
    const bool onBox = GetBoxRect(option)
                           .adjusted(-Scaled(Edge), -Scaled(Pad), Scaled(Gap) / 2, Scaled(Pad))
                           .contains(mouse->pos());
    if (mouse->button() != Qt::LeftButton || (!onBox && !index.parent().isValid())) {
        return false;
    }
    tabs->Toggle(index);
    return true;
}
