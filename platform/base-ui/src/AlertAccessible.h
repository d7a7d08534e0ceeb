#pragma once

#include <QtWidgets/QAccessibleWidget>

/// A message that comes and goes by itself, as screen readers see it.
class AlertAccessible final : public QAccessibleWidget
{
public:
    explicit AlertAccessible(QWidget* widget);

    /// To be called by the constructors of the widgets that are such messages: Qt asks early what a widget
    /// is, and keeps the answer.
    static void Install();
    /// Has the message spoken. Its text is the widget's accessible name.
    static void Announce(QWidget* widget);
};
