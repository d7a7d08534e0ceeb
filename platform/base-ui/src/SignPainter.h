#pragma once

#include "Sign.h"

class QColor;
class QPainter;
class QRectF;

namespace SignPainter {

/// Draws the sign into the square `area`.
void Paint(QPainter* painter, const QRectF& area, Sign sign, const QColor& color);

} // namespace SignPainter
