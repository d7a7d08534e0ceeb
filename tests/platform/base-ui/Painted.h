#pragma once

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

/// What the widget shows now.
inline QImage Painted(QWidget* widget)
{
    return widget->grab().toImage().convertToFormat(QImage::Format_ARGB32);
}
