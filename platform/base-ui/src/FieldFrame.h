#pragma once

class QColor;
class QPainter;
class QRect;

/// What a field for input looks like, whatever is entered in it.
namespace FieldFrame {

/// The background, below what the field shows.
void PaintFill(QPainter* painter, const QRect& area, const QColor& color);

/// The border, on top of what the field shows; twice as wide when the field is `active`.
void PaintBorder(QPainter* painter, const QRect& area, const QColor& color, bool active);

} // namespace FieldFrame
