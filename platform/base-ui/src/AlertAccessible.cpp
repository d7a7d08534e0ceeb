#include "AlertAccessible.h"

#include <QtWidgets/QWidget>

namespace {

QAccessibleInterface* MakeAlert(const QString& className, QObject* object)
{
    if (className != QLatin1String("TLBubbleLabel") && className != QLatin1String("TLToast")) {
        return nullptr;
    }
    auto* const widget = qobject_cast<QWidget*>(object);
    return widget != nullptr ? new AlertAccessible(widget) : nullptr;
}

} // namespace

AlertAccessible::AlertAccessible(QWidget* widget) : QAccessibleWidget(widget, QAccessible::AlertMessage) {}

void AlertAccessible::Install()
{
    QAccessible::installFactory(MakeAlert);
}

void AlertAccessible::Announce(QWidget* widget)
{
    QAccessibleEvent event(widget, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}
