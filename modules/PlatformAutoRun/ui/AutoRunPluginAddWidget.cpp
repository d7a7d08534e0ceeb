#include "ui/AutoRunPluginAddWidget.h"

AutoRunPluginAddWidget::AutoRunPluginAddWidget(QWidget* parent) : AutoRunPluginEditWidget(parent) {}

AutoRunPluginAddWidget::~AutoRunPluginAddWidget() = default;

QString AutoRunPluginAddWidget::GetTitleText() const
{
    return tr("Add App");
}
