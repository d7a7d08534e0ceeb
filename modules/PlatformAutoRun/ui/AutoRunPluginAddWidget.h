#pragma once

#include "ui/AutoRunPluginEditWidget.h"

/// Asks for the app of a new entry.
class AutoRunPluginAddWidget final : public AutoRunPluginEditWidget
{
    Q_OBJECT

public:
    explicit AutoRunPluginAddWidget(QWidget* parent = nullptr);
    ~AutoRunPluginAddWidget() override;

    QString GetTitleText() const override;

private:
    Q_DISABLE_COPY(AutoRunPluginAddWidget)
};
