#pragma once

#include "look/Scaled.h"

#include <QtGui/QFontInfo>
#include <QtGui/QScreen>
#include <QtWidgets/QWidget>

/// Gives the widget a font so many times as large as the application's, which follows the scale. To be called
/// again when the scale changes: a size of its own keeps the widget from following the application's.
inline void SetRelativeFont(QWidget* widget, double times, QFont::Weight weight = QFont::Normal)
{
    QFont font; // the application's, with nothing set yet
    font.setPixelSize(qMax(1, qRound(QFontInfo(font).pixelSize() * times)));
    font.setWeight(weight);
    widget->setFont(font);
}

/// The size [px, unscaled] at the present scale, with some of the window's screen left free.
inline QSize ScaledToScreen(const QWidget* window, const QSize& size)
{
    constexpr double share = 0.9;
    return Scaled(size).boundedTo(window->screen()->availableSize() * share);
}
