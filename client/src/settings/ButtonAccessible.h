#pragma once

#include <QtWidgets/QAccessibleWidget>

class QAbstractButton;

/// A button or check box of a page, as screen readers see it: pressing it is a click of the mouse, so that it
/// takes its turn when input to the page has to wait.
class ButtonAccessible final : public QAccessibleWidget
{
public:
    explicit ButtonAccessible(QAbstractButton* button);

    /// From now on screen readers see the buttons below `page` like this.
    static void Adopt(QWidget* page);

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

private:
    QAbstractButton* GetButton() const;
    QPoint GetHitPoint() const;
};
