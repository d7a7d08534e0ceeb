#include "look/IconLabel.h"

#include "look/Scaled.h"

#include <QtGui/QPainter>

IconLabel::IconLabel(int size, QWidget* parent) : QWidget(parent), m_size(size)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    IconLabel::AdjustForDpi();
}

void IconLabel::SetIcon(const QIcon& icon)
{
    m_icon = icon;
    update();
}

void IconLabel::AdjustForDpi()
{
    setFixedSize(ScaledSquare(m_size));
}

void IconLabel::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    m_icon.paint(&painter, rect());
}
