#pragma once

#include "WindowAction.h"

#include <QtCore/QHash>
#include <QtCore/QObject>

#include <functional>

class QAction;
class QWidget;

/// The window's actions with their keys and texts. The keys work wherever in the window the focus is.
class WindowActions final : public QObject
{
    Q_OBJECT

public:
    explicit WindowActions(QWidget* window);

    QAction* Get(WindowAction action) const;
    /// `act` is called when the action is triggered, as long as `context` lives.
    void Connect(WindowAction action, QObject* context, const std::function<void()>& act) const;
    void SetEnabled(WindowAction action, bool enabled) const;
    void Retranslate();

Q_SIGNALS:
    /// Ctrl and a digit from 1 to 9.
    void SigNumberPressed(int number);

private:
    QHash<int, QAction*> m_actions; // by `WindowAction`
};
