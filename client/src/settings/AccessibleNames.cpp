#include "AccessibleNames.h"

#include "ShownText.h"

#include "base-ui/KeyboardAccess.h"
#include "frame-core/SettingItemBaseWidget.h"

#include <QtCore/QChildEvent>
#include <QtCore/QVariant>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

namespace {

// The name that was given here, to tell it from the page's own.
constexpr const char* GivenNameProperty = "tlAccessibleName";

const QWidget* RowOf(const QWidget* widget, const QWidget* page)
{
    for (const QWidget* it = widget->parentWidget(); it != nullptr && it != page; it = it->parentWidget()) {
        if (qobject_cast<const SettingItemBaseWidget*>(it) != nullptr) {
            return it;
        }
    }
    return nullptr;
}

/// The name that the page itself gives the row's check box, which is never cut off, or else what its first
/// label shows.
QString EntryOf(const QWidget* row)
{
    const QList<QCheckBox*> boxes = row->findChildren<QCheckBox*>();
    for (const QCheckBox* const box : boxes) {
        const QString name = box->accessibleName();
        if (!name.isEmpty() && name != box->property(GivenNameProperty).toString()) {
            return name;
        }
    }
    const QList<QLabel*> labels = row->findChildren<QLabel*>();
    for (const QLabel* const label : labels) {
        QString text = label->accessibleName().isEmpty() ? ShownText::Of(label) : label->accessibleName();
        if (!text.isEmpty()) {
            return text;
        }
    }
    return QString();
}

QString LabelBefore(const QWidget* widget, const QVector<QWidget*>& order)
{
    for (int i = order.indexOf(const_cast<QWidget*>(widget)) - 1; i >= 0; --i) {
        const auto* const label = qobject_cast<const QLabel*>(order.at(i));
        if (label != nullptr && !ShownText::Of(label).isEmpty()) {
            return ShownText::Of(label);
        }
    }
    return QString();
}

} // namespace

AccessibleNames::AccessibleNames(QWidget* page) : QObject(page), m_page(page)
{
    Watch(page);
    const QList<QWidget*> parts = page->findChildren<QWidget*>();
    for (QWidget* const part : parts) {
        Watch(part);
    }
    Update();
}

AccessibleNames::~AccessibleNames() = default;

bool AccessibleNames::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ChildPolished:
        if (QObject* const child = static_cast<QChildEvent*>(event)->child(); child->isWidgetType()) {
            auto* const widget = static_cast<QWidget*>(child);
            Watch(widget);
            const QList<QWidget*> parts = widget->findChildren<QWidget*>();
            for (QWidget* const part : parts) {
                Watch(part);
            }
        }
        UpdateLater();
        break;
    case QEvent::LayoutRequest:
    case QEvent::LanguageChange:
    case QEvent::Show:
        UpdateLater();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void AccessibleNames::Watch(QWidget* widget)
{
    widget->installEventFilter(this); // a second time counts once
}

void AccessibleNames::UpdateLater()
{
    if (m_pending) {
        return;
    }
    m_pending = true;
    QMetaObject::invokeMethod(this, &AccessibleNames::Update, Qt::QueuedConnection);
}

void AccessibleNames::Update()
{
    m_pending = false;
    const QVector<QWidget*> order = KeyboardAccess::GetReadingOrder(m_page);
    for (QWidget* const widget : order) {
        Name(widget, order);
    }
}

void AccessibleNames::Name(QWidget* widget, const QVector<QWidget*>& order) const
{
    const QString present = widget->accessibleName();
    // A name that repeats the tool tip does not tell the rows apart.
    const bool isGiven =
        present != widget->property(GivenNameProperty).toString() && present != widget->toolTip();
    if (!present.isEmpty() && isGiven) {
        return;
    }
    QString name;
    if (auto* const button = qobject_cast<QAbstractButton*>(widget)) {
        const QWidget* const row = RowOf(button, m_page);
        const QString entry = row != nullptr ? EntryOf(row) : QString();
        const QString objectName = button->objectName();
        if (!button->text().isEmpty()) {
            name = entry.isEmpty() ? QString() : tr("%1: %2", "button: entry").arg(button->text(), entry);
        } else if (objectName == QLatin1String("edit_button")) {
            name = tr("Edit %1").arg(entry);
        } else if (objectName == QLatin1String("delete_button")) {
            name = tr("Delete %1").arg(entry);
        } else {
            name = entry;
        }
    } else if (auto* const field = qobject_cast<QLineEdit*>(widget)) {
        name = LabelBefore(field, order);
        if (name.isEmpty()) {
            name = field->placeholderText();
        }
    } else if (qobject_cast<QComboBox*>(widget) != nullptr) {
        name = LabelBefore(widget, order);
    }
    if (name.isEmpty() || name == present) {
        return;
    }
    widget->setAccessibleName(name);
    widget->setProperty(GivenNameProperty, name);
}
