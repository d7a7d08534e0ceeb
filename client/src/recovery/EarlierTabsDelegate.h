#pragma once

#include <QtWidgets/QStyledItemDelegate>

/// Draws a row of `EarlierTabsModel`: check box, icon, and two lines of plain text. A click on a tab, or on
/// the check box of a set, ticks it; so does the space bar.
class EarlierTabsDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit EarlierTabsDelegate(QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
};
