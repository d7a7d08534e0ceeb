#pragma once

#include <QtWidgets/QStyledItemDelegate>

/// Draws an app as a tile: the icon, and below it the name in at most two lines.
class AppTileDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit AppTileDelegate(QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
