#pragma once

#include "ui/AutoRunBaseItem.h"

/// The row of an entry that the operator added: it can be ticked and opened first, and nothing else.
class AutoRunSystemItem final : public AutoRunBaseItem
{
    Q_OBJECT

public:
    explicit AutoRunSystemItem(QWidget* parent = nullptr);
    ~AutoRunSystemItem() override;

    int GetItemKind() const override;

private:
    Q_DISABLE_COPY(AutoRunSystemItem)
};
