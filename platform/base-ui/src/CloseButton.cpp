#include "CloseButton.h"

#include "Scaled.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>

CloseButton::CloseButton(int size, QWidget* parent) : QAbstractButton(parent), m_size(size)
{
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

CloseButton::~CloseButton() = default;

QSize CloseButton::sizeHint() const
{
    return {Scaled(m_size), Scaled(m_size)};
}

void CloseButton::enterEvent(QEvent* event)
{
    QAbstractButton::enterEvent(event);
    update();
}

void CloseButton::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    update();
}

void CloseButton::keyPressEvent(QKeyEvent* event)
{
    // Otherwise the dialog would press its default button on Enter, although the focus is here.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void CloseButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(rect()).adjusted(1, 1, -1, -1);
    const qreal radius = Scaled(6);

    if (isDown() || underMouse()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(isDown() ? QPalette::Mid : QPalette::Midlight));
        painter.drawRoundedRect(area, radius, radius);
    }
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), Scaled(2)));
        painter.drawRoundedRect(area, radius, radius);
    }
    const qreal arm = width() / 6.0;
    const QPointF centre = QRectF(rect()).center();
    painter.setPen(QPen(palette().color(QPalette::WindowText), Scaled(3) / 2.0, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(centre + QPointF(-arm, -arm), centre + QPointF(arm, arm));
    painter.drawLine(centre + QPointF(arm, -arm), centre + QPointF(-arm, arm));
}
