#pragma once

#include "base-ui/TLComboBox.h"

/// The list of apps in the dialogs that choose one.
class AutoRunPluginCombo final : public TLComboBox
{
    Q_OBJECT

public:
    explicit AutoRunPluginCombo(QWidget* parent = nullptr);
    ~AutoRunPluginCombo() override;

private:
    Q_DISABLE_COPY(AutoRunPluginCombo)
};
