#include "WidgetPlace.h"

#include "ShownText.h"

#include "frame-core/SettingItemBaseWidget.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QWidget>

namespace {

/// What a row says, which is what its first label with a text shows.
QString ContentOf(const QWidget* widget)
{
    if (qobject_cast<const SettingItemBaseWidget*>(widget) == nullptr) {
        return QString();
    }
    const QList<QLabel*> labels = widget->findChildren<QLabel*>();
    for (const QLabel* const label : labels) {
        QString text = ShownText::Of(label);
        if (!text.isEmpty()) {
            return text;
        }
    }
    return QString();
}

/// A text that did not fit shows as much as the scale leaves room for.
bool IsSameContent(QString a, QString b)
{
    if (a == b) {
        return true;
    }
    const QChar ellipsis(0x2026);
    const bool cutA = a.endsWith(ellipsis);
    const bool cutB = b.endsWith(ellipsis);
    a.chop(cutA ? 1 : 0);
    b.chop(cutB ? 1 : 0);
    return (cutA && b.startsWith(a)) || (cutB && a.startsWith(b));
}

bool IsAlike(const QWidget* widget, const QString& className, const QString& objectName)
{
    return QLatin1String(widget->metaObject()->className()) == className &&
           widget->objectName() == objectName;
}

QVector<QWidget*> PartsOf(const QWidget* parent)
{
    QVector<QWidget*> parts;
    for (QObject* const child : parent->children()) {
        if (child->isWidgetType()) {
            parts.append(static_cast<QWidget*>(child));
        }
    }
    return parts;
}

} // namespace

WidgetPlace::WidgetPlace(const QWidget* page, const QWidget* widget)
{
    for (const QWidget* it = widget; it != nullptr && it != page; it = it->parentWidget()) {
        m_steps.prepend(StepOf(it));
    }
}

QWidget* WidgetPlace::FindIn(QWidget* page) const
{
    QWidget* widget = page;
    for (const Step& step : m_steps) {
        widget = Follow(widget, step);
        if (widget == nullptr) {
            return nullptr;
        }
    }
    return widget;
}

WidgetPlace::Step WidgetPlace::StepOf(const QWidget* widget)
{
    Step step;
    step.className = QLatin1String(widget->metaObject()->className());
    step.objectName = widget->objectName();
    step.content = ContentOf(widget);
    const QVector<QWidget*> siblings = PartsOf(widget->parentWidget());
    for (const QWidget* const sibling : siblings) {
        if (sibling == widget) {
            break;
        }
        if (IsAlike(sibling, step.className, step.objectName)) {
            ++step.index;
        }
    }
    return step;
}

QWidget* WidgetPlace::Follow(QWidget* parent, const Step& step)
{
    QVector<QWidget*> alike;
    const QVector<QWidget*> parts = PartsOf(parent);
    for (QWidget* const part : parts) {
        if (IsAlike(part, step.className, step.objectName)) {
            alike.append(part);
        }
    }
    QWidget* const there = alike.value(step.index);
    if (step.content.isEmpty() || (there != nullptr && IsSameContent(ContentOf(there), step.content))) {
        return there;
    }
    QWidget* found = nullptr;
    for (QWidget* const part : qAsConst(alike)) {
        if (IsSameContent(ContentOf(part), step.content)) {
            if (found != nullptr) {
                return nullptr; // two of the same: either may be meant
            }
            found = part;
        }
    }
    return found;
}
