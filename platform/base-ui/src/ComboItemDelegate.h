#pragma once

#include <QtWidgets/QStyledItemDelegate>

class QComboBox;
class QIcon;

/// The rows of a combo box's list: of one height, in the colours of the combo box, and with a tool tip when
/// their text is cut off.
class ComboItemDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit ComboItemDelegate(QComboBox* combo);
    ~ComboItemDelegate() override;

    /// [px, unscaled]
    void SetRowHeight(int height);

    /// Icon and text of an item, in the painter's pen; the text is elided. No room for an icon that is null.
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
