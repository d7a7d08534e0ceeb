#pragma once

#include <QtWidgets/QAccessibleWidget>

/// A message that comes and goes by itself, as screen readers see it.
class AlertAccessible final : public QAccessibleWidget
{
public:
    explicit AlertAccessible(QWidget* widget);

    /// Widgets that are such messages call this in their constructors: Qt asks early what a widget is, and
    /// keeps the answer.
    static void Install();
    /// Makes screen readers speak the message, which is the widget's accessible name.
    static void Announce(QWidget* widget);
};
