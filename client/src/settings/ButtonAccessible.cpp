#include "ButtonAccessible.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtCore/QVariant>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionButton>

namespace {

constexpr const char* AdoptedProperty = "tlButtonsByMouse";

bool IsAdopted(const QWidget* widget)
{
    for (const QWidget* it = widget; it != nullptr; it = it->parentWidget()) {
        if (it->property(AdoptedProperty).toBool()) {
            return true;
        }
    }
    return false;
}

QAccessibleInterface* MakeButton(const QString& className, QObject* object)
{
    auto* const button = qobject_cast<QAbstractButton*>(object);
    if (button == nullptr || className != QLatin1String(object->metaObject()->className()) ||
        !IsAdopted(button)) {
        return nullptr;
    }
    return new ButtonAccessible(button);
}

QAccessible::Role RoleOf(const QAbstractButton* button)
{
    if (qobject_cast<const QRadioButton*>(button) != nullptr) {
        return QAccessible::RadioButton;
    }
    return button->isCheckable() ? QAccessible::CheckBox : QAccessible::Button;
}

} // namespace

ButtonAccessible::ButtonAccessible(QAbstractButton* button) : QAccessibleWidget(button, RoleOf(button)) {}

void ButtonAccessible::Adopt(QWidget* page)
{
    QAccessible::installFactory(MakeButton);
    page->setProperty(AdoptedProperty, true);
}

QString ButtonAccessible::text(QAccessible::Text kind) const
{
    QString given = QAccessibleWidget::text(kind);
    if (kind != QAccessible::Name || !given.isEmpty()) {
        return given;
    }
    return GetButton()->text().remove(QLatin1Char('&'));
}

QAccessible::State ButtonAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    const QAbstractButton* const button = GetButton();
    state.checkable = button->isCheckable();
    state.checked = button->isChecked();
    state.pressed = button->isDown();
    if (const auto* const box = qobject_cast<const QCheckBox*>(button)) {
        state.checkStateMixed = box->checkState() == Qt::PartiallyChecked;
    }
    if (const auto* const push = qobject_cast<const QPushButton*>(button)) {
        state.defaultButton = push->isDefault();
    }
    return state;
}

QStringList ButtonAccessible::actionNames() const
{
    QStringList names;
    if (GetButton()->isEnabled()) {
        names.append(GetButton()->isCheckable() ? toggleAction() : pressAction());
    }
    return names + QAccessibleWidget::actionNames();
}

void ButtonAccessible::doAction(const QString& name)
{
    if (name != pressAction() && name != toggleAction()) {
        QAccessibleWidget::doAction(name);
        return;
    }
    const QPointer<QAbstractButton> button(GetButton());
    if (!button->isEnabled()) {
        return;
    }
    const QPoint place = GetHitPoint();
    const QPoint global = button->mapToGlobal(place);
    QMouseEvent press(QEvent::MouseButtonPress, place, global, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(button, &press);
    if (button.isNull()) {
        return;
    }
    QMouseEvent release(QEvent::MouseButtonRelease, place, global, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(button, &release);
}

QAbstractButton* ButtonAccessible::GetButton() const
{
    return static_cast<QAbstractButton*>(widget());
}

QPoint ButtonAccessible::GetHitPoint() const
{
    const QAbstractButton* const button = GetButton();
    if (qobject_cast<const QCheckBox*>(button) == nullptr) {
        return button->rect().center();
    }
    QStyleOptionButton option;
    option.initFrom(button);
    option.text = button->text();
    return button->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, button).center();
}
