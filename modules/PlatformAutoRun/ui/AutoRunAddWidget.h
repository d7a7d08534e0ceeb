#pragma once

#include "ui/AutoRunEditWidget.h"

/// Asks for the web address of a new entry.
class AutoRunAddWidget final : public AutoRunEditWidget
{
    Q_OBJECT

public:
    explicit AutoRunAddWidget(QWidget* parent = nullptr);
    ~AutoRunAddWidget() override;

    QString GetTitleText() const override;

private:
    Q_DISABLE_COPY(AutoRunAddWidget)
};
