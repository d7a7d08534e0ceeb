#include "frame-core/SettingItemBaseWidget.h"

#include "base-ui/UIUtils.h"

SettingItemBaseWidget::SettingItemBaseWidget(QWidget* parent, Qt::WindowFlags flags)
    : TLBaseWidget(parent, flags)
{}

SettingItemBaseWidget::~SettingItemBaseWidget() = default;

void SettingItemBaseWidget::SetKeyword(const QString&) {}

void SettingItemBaseWidget::SaveData() {}

void SettingItemBaseWidget::SetLabelHighlighted(QLabel* label, const QString& keyword)
{
    UIUtils::HighlightLabel(label, keyword);
}
