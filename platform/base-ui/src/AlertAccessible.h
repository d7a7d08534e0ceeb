#pragma once

#include <QtWidgets/QAccessibleWidget>

/// A message that comes and goes by itself, as screen readers see it.
class AlertAccessible final : public QAccessibleWidget
{
public:
    explicit AlertAccessible(QWidget* widget);

    /// Has the message spoken. Its text is the widget's accessible name.
    static void Announce(QWidget* widget);
};
