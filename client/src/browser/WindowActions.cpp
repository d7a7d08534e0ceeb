#include "WindowActions.h"

#include <QtGui/QKeySequence>
#include <QtWidgets/QAction>
#include <QtWidgets/QWidget>

namespace {

struct Keys
{
    WindowAction action;
    QList<QKeySequence> keys;
};

QList<Keys> MakeKeys()
{
    return {
        {WindowAction::NewTab, {QKeySequence(Qt::CTRL + Qt::Key_T)}},
        {WindowAction::CloseTab, {QKeySequence(Qt::CTRL + Qt::Key_W), QKeySequence(Qt::CTRL + Qt::Key_F4)}},
        {WindowAction::ReopenTab, {QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_T)}},
        {WindowAction::Find, {QKeySequence(Qt::CTRL + Qt::Key_F)}},
        {WindowAction::ZoomIn,
         {QKeySequence(Qt::CTRL + Qt::Key_Plus), QKeySequence(Qt::CTRL + Qt::Key_Equal)}},
        {WindowAction::ZoomOut, {QKeySequence(Qt::CTRL + Qt::Key_Minus)}},
        {WindowAction::ActualSize, {QKeySequence(Qt::CTRL + Qt::Key_0)}},
        {WindowAction::Back, {QKeySequence(Qt::ALT + Qt::Key_Left), QKeySequence(Qt::Key_Back)}},
        {WindowAction::Forward, {QKeySequence(Qt::ALT + Qt::Key_Right), QKeySequence(Qt::Key_Forward)}},
        {WindowAction::Reload, {QKeySequence(Qt::Key_F5), QKeySequence(Qt::CTRL + Qt::Key_R)}},
        {WindowAction::Escape, {QKeySequence(Qt::Key_Escape)}},
        {WindowAction::TypeAddress, {QKeySequence(Qt::CTRL + Qt::Key_L), QKeySequence(Qt::Key_F6)}},
        {WindowAction::NextTab,
         {QKeySequence(Qt::CTRL + Qt::Key_Tab), QKeySequence(Qt::CTRL + Qt::Key_PageDown)}},
        {WindowAction::PreviousTab,
         {QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_Tab),
          QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_Backtab), QKeySequence(Qt::CTRL + Qt::Key_PageUp)}},
        {WindowAction::MoveTabBack, {QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_PageUp)}},
        {WindowAction::MoveTabForward, {QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_PageDown)}},
        {WindowAction::OpenMenu, {QKeySequence(Qt::Key_F10), QKeySequence(Qt::ALT + Qt::Key_F)}},
        {WindowAction::LogOut, {}},
        {WindowAction::Quit, {QKeySequence(Qt::CTRL + Qt::Key_Q)}},
    };
}

} // namespace

WindowActions::WindowActions(QWidget* window)
{
    const auto add = [window](const QList<QKeySequence>& keys) {
        auto* action = new QAction(window);
        action->setShortcuts(keys);
        window->addAction(action);
        return action;
    };
    const QList<Keys> all = MakeKeys();
    for (const Keys& keys : all) {
        m_actions.insert(static_cast<int>(keys.action), add(keys.keys));
    }
    for (int number = 1; number <= 9; ++number) {
        const QAction* const action = add({QKeySequence(int(Qt::CTRL) + Qt::Key_0 + number)});
        connect(action, &QAction::triggered, this, [this, number] { Q_EMIT SigNumberPressed(number); });
    }
    Retranslate();
}

QAction* WindowActions::Get(WindowAction action) const
{
    return m_actions.value(static_cast<int>(action));
}

void WindowActions::Connect(WindowAction action, QObject* context, const std::function<void()>& act) const
{
    connect(Get(action), &QAction::triggered, context, act);
}

void WindowActions::SetEnabled(WindowAction action, bool enabled) const
{
    Get(action)->setEnabled(enabled);
}

void WindowActions::Retranslate()
{
    Get(WindowAction::NewTab)->setText(tr("New &tab"));
    Get(WindowAction::CloseTab)->setText(tr("Close tab"));
    Get(WindowAction::ReopenTab)->setText(tr("Reopen &closed tab"));
    Get(WindowAction::Find)->setText(tr("&Find in page…"));
    Get(WindowAction::ZoomIn)->setText(tr("Zoom in"));
    Get(WindowAction::ZoomOut)->setText(tr("Zoom out"));
    Get(WindowAction::ActualSize)->setText(tr("Actual size"));
    Get(WindowAction::LogOut)->setText(tr("Log &out"));
    Get(WindowAction::Quit)->setText(tr("&Quit"));
}
