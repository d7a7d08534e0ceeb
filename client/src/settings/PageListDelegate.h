#pragma once

#include <QtWidgets/QStyledItemDelegate>

/// Lines of a list whose chosen one has a light background: its icon stays as it is.
class PageListDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit PageListDelegate(QObject* parent = nullptr);
    ~PageListDelegate() override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
