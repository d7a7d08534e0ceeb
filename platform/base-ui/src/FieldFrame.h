#pragma once

class QColor;
class QPainter;
class QRect;

/// The look of an input field, whatever goes into it.
namespace FieldFrame {

/// Paints the background, below the field's content.
void PaintFill(QPainter* painter, const QRect& area, const QColor& color);

/// Paints the border, on top of the field's content; twice as wide when the field is `active`.
void PaintBorder(QPainter* painter, const QRect& area, const QColor& color, bool active);

} // namespace FieldFrame
