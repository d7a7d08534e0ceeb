#pragma once

#include <QtWidgets/QAccessibleWidget>

class QLabel;

/// A label that answers to the mouse as a button does, as screen readers see it: by role and action.
class LabelAccessible final : public QAccessibleWidget
{
public:
    explicit LabelAccessible(QLabel* label);

    /// From now on labels that `KeyboardAccess::IsPressable` accepts are seen so. May be called again.
    static void Install();
    /// Has Qt ask anew what the label is; it may have been asked before the theme said so.
    static void Refresh(QLabel* label);

    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

private:
    QLabel* GetLabel() const;
};
