#pragma once

#include <QtWidgets/QStyledItemDelegate>

/// The rows of a combo box's list: of one height, and with a tool tip when their text is cut off.
class ComboItemDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit ComboItemDelegate(QObject* parent);
    ~ComboItemDelegate() override;

    /// [px, unscaled]
    void SetRowHeight(int height);

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    int m_rowHeight = 0;
};
