#pragma once

#include <QtWidgets/QAccessibleWidget>

class QLabel;

/// A label that reacts to the mouse like a button, as screen readers see it: by role and action.
class LabelAccessible final : public QAccessibleWidget
{
public:
    explicit LabelAccessible(QLabel* label);

    /// From now on, screen readers see labels that `KeyboardAccess::IsPressable` accepts in this way. May be
    /// called again.
    static void Install();
    /// Makes Qt ask again what the label is; it may have asked before the theme made it a button.
    static void Refresh(QLabel* label);

    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

private:
    QLabel* GetLabel() const;
};
