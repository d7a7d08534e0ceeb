#pragma once

#include <QtWidgets/QStyledItemDelegate>

/// Draws lines of a list whose selection has a light background: their icons stay as they are.
class PageListDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit PageListDelegate(QObject* parent = nullptr);
    ~PageListDelegate() override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
