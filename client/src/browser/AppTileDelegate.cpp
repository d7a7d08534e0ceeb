#include "AppTileDelegate.h"

#include "look/Scaled.h"

#include <QtGui/QPainter>
#include <QtGui/QTextLayout>
#include <QtWidgets/QApplication>

namespace {

constexpr int TileWidth = 128; // [px]
constexpr int IconSize = 48;   // [px]
constexpr int Pad = 16;        // above the icon [px]
constexpr int Gap = 8;         // between icon and name [px]
constexpr int Side = 8;        // beside the name [px]
constexpr int Lines = 2;

/// How far below the top of the tile its name begins [px].
int GetNameTop()
{
    return Scaled(Pad) + Scaled(IconSize) + Scaled(Gap);
}

void DrawName(QPainter* painter, const QRect& room, const QString& name)
{
    const QFontMetrics metrics = painter->fontMetrics();
    QTextLayout layout(name, painter->font());
    QTextOption option(Qt::AlignHCenter);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (int i = 0; i < Lines; ++i) {
        QTextLine line = layout.createLine();
        if (!line.isValid()) {
            break;
        }
        line.setLineWidth(room.width());
        const QRect lineRect(room.x(), room.y() + i * metrics.lineSpacing(), room.width(), metrics.height());
        const QString rest = name.mid(line.textStart());
        const QString text = i == Lines - 1 ? metrics.elidedText(rest, Qt::ElideRight, room.width())
                                            : rest.left(line.textLength()).trimmed();
        painter->drawText(lineRect, Qt::AlignHCenter | Qt::TextSingleLine, text);
    }
    layout.endLayout();
}

} // namespace

AppTileDelegate::AppTileDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

void AppTileDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const
{
    // The theme draws the tile's ground, hover and focus; see QListView#app_grid::item.
    QStyleOptionViewItem ground(option);
    ground.text.clear();
    ground.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &ground, painter, ground.widget);

    painter->save();
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    const auto icon = index.data(Qt::DecorationRole).value<QPixmap>();
    if (!icon.isNull()) {
        const QRect top(option.rect.left(), option.rect.top() + Scaled(Pad), option.rect.width(),
                        Scaled(IconSize));
        const QSize size = icon.size().scaled(ScaledSquare(IconSize), Qt::KeepAspectRatio);
        painter->drawPixmap(QStyle::alignedRect(option.direction, Qt::AlignCenter, size, top), icon);
    }
    painter->setFont(option.font);
    painter->setPen(option.palette.color(QPalette::Text));
    const QRect nameRoom = option.rect.adjusted(Scaled(Side), GetNameTop(), -Scaled(Side), 0);
    DrawName(painter, nameRoom, index.data(Qt::DisplayRole).toString());
    painter->restore();
}

QSize AppTileDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    Q_UNUSED(index)
    return {Scaled(TileWidth), GetNameTop() + Lines * option.fontMetrics.lineSpacing() + Scaled(Pad / 2)};
}
