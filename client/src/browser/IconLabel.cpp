#include "browser/IconLabel.h"

#include <QtGui/QPainter>

IconLabel::IconLabel(int size, QWidget* parent) : QWidget(parent)
{
    setFixedSize(size, size);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void IconLabel::SetIcon(const QIcon& icon)
{
    m_icon = icon;
    update();
}

void IconLabel::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    m_icon.paint(&painter, rect());
}
