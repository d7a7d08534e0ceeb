#include "FieldFrame.h"

#include "Scaled.h"

#include <QtGui/QPainter>

namespace {

constexpr int CornerRadius = 6; // [px, unscaled]

} // namespace

void FieldFrame::PaintFill(QPainter* painter, const QRect& area, const QColor& color)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(color);
    const qreal radius = Scaled(CornerRadius);
    painter->drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter->restore();
}

void FieldFrame::PaintBorder(QPainter* painter, const QRect& area, const QColor& color, bool active)
{
    const int line = active ? Scaled(2) : Scaled(1);
    const qreal inset = line / 2.0;
    const qreal radius = Scaled(CornerRadius) - inset;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(color, line));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(area).adjusted(inset, inset, -inset, -inset), radius, radius);
    painter->restore();
}
