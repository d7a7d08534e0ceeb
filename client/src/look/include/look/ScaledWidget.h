#pragma once

#include "look/Scaled.h"

#include <QtGui/QFontInfo>
#include <QtGui/QScreen>
#include <QtWidgets/QWidget>

/// Gives the widget a font `times` as large as the application's, which follows the scale. Call again when
/// the scale changes: a widget with its own font size no longer follows the application's.
inline void SetRelativeFont(QWidget* widget, double times, QFont::Weight weight = QFont::Normal)
{
    QFont font; // the application's
    font.setPixelSize(qMax(1, qRound(QFontInfo(font).pixelSize() * times)));
    font.setWeight(weight);
    widget->setFont(font);
}

/// `size` [px, unscaled] at the current scale, limited so that some of the window's screen stays free.
inline QSize ScaledToScreen(const QWidget* window, const QSize& size)
{
    constexpr double share = 0.9;
    return Scaled(size).boundedTo(window->screen()->availableSize() * share);
}
