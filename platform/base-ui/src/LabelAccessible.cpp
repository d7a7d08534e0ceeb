#include "LabelAccessible.h"

#include "base-ui/KeyboardAccess.h"

#include <QtGui/QTextDocument>
#include <QtGui/QTextDocumentFragment>
#include <QtWidgets/QLabel>

namespace {

QAccessibleInterface* MakeLabel(const QString& className, QObject* object)
{
    if (className != QLatin1String("QLabel")) {
        return nullptr;
    }
    auto* const label = qobject_cast<QLabel*>(object);
    return label != nullptr && KeyboardAccess::IsPressable(label) ? new LabelAccessible(label) : nullptr;
}

} // namespace

LabelAccessible::LabelAccessible(QLabel* label) : QAccessibleWidget(label, QAccessible::Button) {}

void LabelAccessible::Install()
{
    QAccessible::installFactory(MakeLabel);
}

void LabelAccessible::Refresh(QLabel* label)
{
    QAccessibleInterface* const known = QAccessible::queryAccessibleInterface(label);
    if (known != nullptr && known->role() != QAccessible::Button) {
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(known));
    }
}

QString LabelAccessible::text(QAccessible::Text kind) const
{
    QString given = QAccessibleWidget::text(kind);
    if (kind != QAccessible::Name || !given.isEmpty()) {
        return given;
    }
    const QString shown = GetLabel()->text();
    return Qt::mightBeRichText(shown) && GetLabel()->textFormat() != Qt::PlainText
               ? QTextDocumentFragment::fromHtml(shown).toPlainText()
               : shown;
}

QStringList LabelAccessible::actionNames() const
{
    return QStringList(pressAction()) + QAccessibleWidget::actionNames();
}

void LabelAccessible::doAction(const QString& name)
{
    if (name != pressAction()) {
        QAccessibleWidget::doAction(name);
    } else if (GetLabel()->isEnabled()) {
        KeyboardAccess::PressMouseOn(GetLabel());
    }
}

QLabel* LabelAccessible::GetLabel() const
{
    return static_cast<QLabel*>(widget());
}
