#include "ui/AutoRunAddWidget.h"

AutoRunAddWidget::AutoRunAddWidget(QWidget* parent) : AutoRunEditWidget(parent) {}

AutoRunAddWidget::~AutoRunAddWidget() = default;

QString AutoRunAddWidget::GetTitleText() const
{
    return tr("Add Url");
}
