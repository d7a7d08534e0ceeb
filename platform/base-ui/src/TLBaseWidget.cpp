#include "base-ui/TLBaseWidget.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>

TLBaseWidget::TLBaseWidget(QWidget* parent, Qt::WindowFlags flags) : QWidget(parent, flags) {}

TLBaseWidget::~TLBaseWidget() = default;

void TLBaseWidget::paintEvent(QPaintEvent*)
{
    QStyleOption option;
    option.initFrom(this);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
}
