#include "SignPainter.h"

#include <QtCore/QRectF>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

void SignPainter::Paint(QPainter* painter, const QRectF& area, Sign sign, const QColor& color)
{
    const qreal line = area.width() / 10;
    const auto point = [&area](qreal x, qreal y) {
        return QPointF(area.left() + x * area.width(), area.top() + y * area.height());
    };

    QPainterPath glyph;
    QPointF dot;
    switch (sign) {
    case Sign::Information:
        dot = point(0.5, 0.29);
        glyph.moveTo(point(0.5, 0.47));
        glyph.lineTo(point(0.5, 0.72));
        break;
    case Sign::Success:
        glyph.moveTo(point(0.3, 0.52));
        glyph.lineTo(point(0.44, 0.66));
        glyph.lineTo(point(0.7, 0.37));
        break;
    case Sign::Warning:
        dot = point(0.5, 0.72);
        glyph.moveTo(point(0.5, 0.28));
        glyph.lineTo(point(0.5, 0.54));
        break;
    case Sign::Error:
        glyph.moveTo(point(0.36, 0.36));
        glyph.lineTo(point(0.64, 0.64));
        glyph.moveTo(point(0.64, 0.36));
        glyph.lineTo(point(0.36, 0.64));
        break;
    }

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(color, line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const qreal inset = line / 2;
    painter->drawEllipse(area.adjusted(inset, inset, -inset, -inset));
    painter->drawPath(glyph);
    if (!dot.isNull()) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(color);
        painter->drawEllipse(dot, line * 0.65, line * 0.65);
    }
    painter->restore();
}
