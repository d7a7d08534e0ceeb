#pragma once

#include "ui/AutoRunBaseItem.h"

/// The row of the home page, which opens at every start: its box is locked.
class AutoRunHomeItem final : public AutoRunBaseItem
{
    Q_OBJECT

public:
    explicit AutoRunHomeItem(QWidget* parent = nullptr);
    ~AutoRunHomeItem() override;

    int GetItemKind() const override;
    bool IsCheckLocked() const override;

private:
    Q_DISABLE_COPY(AutoRunHomeItem)
};
