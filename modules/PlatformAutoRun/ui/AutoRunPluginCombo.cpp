#include "ui/AutoRunPluginCombo.h"

AutoRunPluginCombo::AutoRunPluginCombo(QWidget* parent) : TLComboBox(parent)
{
    SetBusiness(ComboBusiness::Apps);
}

AutoRunPluginCombo::~AutoRunPluginCombo() = default;
