#include "TabMenu.h"

TabMenu::TabMenu(const State& state, QAction* reopen, QWidget* parent) : QMenu(parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
    connect(Add(tr("Reload"), state.canReload), &QAction::triggered, this, &TabMenu::SigReload);
    addSeparator();
    connect(Add(tr("Close tab"), state.canClose), &QAction::triggered, this, &TabMenu::SigClose);
    connect(Add(tr("Close other tabs"), state.hasOthers), &QAction::triggered, this,
            &TabMenu::SigCloseOthers);
    addSeparator();
    addAction(reopen);
}

QAction* TabMenu::Add(const QString& text, bool enabled)
{
    QAction* const action = addAction(text);
    action->setEnabled(enabled);
    return action;
}
