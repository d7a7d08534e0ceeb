#pragma once

#include "ui/AutoRunBaseItem.h"

class AutoRunOperateWidget;

/// The row of the user's own web address: shows the address, and can be edited and deleted.
class AutoRunCustomItem final : public AutoRunBaseItem
{
    Q_OBJECT

public:
    explicit AutoRunCustomItem(QWidget* parent = nullptr);
    ~AutoRunCustomItem() override;

    int GetItemKind() const override;
    QString GetShowText() const override;
    QWidget* GetOperateWidget() override;

private Q_SLOTS:
    void SlotEdit();
    void SlotDelete();

private:
    Q_DISABLE_COPY(AutoRunCustomItem)

    AutoRunOperateWidget* m_operateWidget = nullptr; ///< made on first use
};
