#include "AlertAccessible.h"

#include <QtWidgets/QWidget>

namespace {

QAccessibleInterface* MakeAlert(const QString& className, QObject* object)
{
    if (className != QLatin1String("TLBubbleLabel") && className != QLatin1String("TLToast"))
        return nullptr;
    auto* const widget = qobject_cast<QWidget*>(object);
    return widget != nullptr ? new AlertAccessible(widget) : nullptr;
}

} // namespace

AlertAccessible::AlertAccessible(QWidget* widget) : QAccessibleWidget(widget, QAccessible::AlertMessage) {}

void AlertAccessible::Announce(QWidget* widget)
{
    static const bool installed = [] {
        QAccessible::installFactory(MakeAlert);
        return true;
    }();
    Q_UNUSED(installed)
    QAccessibleEvent event(widget, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}
