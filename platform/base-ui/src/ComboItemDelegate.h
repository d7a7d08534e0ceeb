#pragma once

#include <QtWidgets/QStyledItemDelegate>

class QComboBox;
class QIcon;

/// The rows of a combo box's list: all of one height, in the colours of the combo box, and with a tool tip
/// for text that is cut off.
class ComboItemDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit ComboItemDelegate(QComboBox* combo);
    ~ComboItemDelegate() override;

    /// [px, unscaled]
    void SetRowHeight(int height);

    /// Paints icon and text of an item with the painter's pen; elides the text. Reserves no room for a null
    /// icon.
    static void PaintItem(QPainter* painter, const QRect& area, Qt::LayoutDirection direction,
                          const QSize& iconSize, const QIcon& icon, const QString& text, bool enabled);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    int GetNeededWidth(const QStyleOptionViewItem& option, const QModelIndex& index) const; // [px]

    QComboBox* m_combo;
    int m_rowHeight = 0;
};
