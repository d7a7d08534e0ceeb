#pragma once

#include <QtGui/QColor>
#include <QtGui/QPalette>

/// The theme's colour if it sets one, otherwise the palette's.
inline QColor ThemedColor(const QColor& themed, const QPalette& palette, QPalette::ColorRole role)
{
    return themed.isValid() ? themed : palette.color(role);
}
