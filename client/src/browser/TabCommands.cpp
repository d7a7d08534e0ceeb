#include "TabCommands.h"

#include "BrowserTab.h"
#include "OpenTabs.h"
#include "TabListPopup.h"
#include "TabMenu.h"
#include "TabOpening.h"
#include "WindowActions.h"
#include "ZoomSteps.h"

#include <QtWidgets/QAction>

TabCommands::TabCommands(OpenTabs* tabs, const WindowActions* actions, const TLPluginBaseManager* apps,
                         QWidget* window)
    : m_tabs(tabs), m_actions(actions), m_apps(apps), m_window(window)
{
    ConnectTabActions();
    ConnectPageActions();
}

void TabCommands::OpenStartTab()
{
    m_tabs->Open(TabRecord(), -1, true);
}

void TabCommands::OpenApp(const QString& serviceCode)
{
    const int index = m_tabs->FindApp(serviceCode);
    if (index >= 0) {
        Q_EMIT SigSelectRequested(index);
    } else {
        m_tabs->Open(TabOpening::MakeAppRecord(serviceCode, m_apps), -1, true);
    }
}

void TabCommands::ReopenClosed()
{
    const int index = m_tabs->ReopenClosed();
    if (index >= 0) {
        Q_EMIT SigReopened(index);
    }
}

void TabCommands::RequestClose(int index)
{
    BrowserTab* const tab = m_tabs->GetTab(index);
    if (tab && index > 0 && !m_tabs->HasEnded()) {
        tab->RequestClose();
    }
}

void TabCommands::ShowTabList(QWidget* anchor)
{
    QStringList titles;
    const QVector<TabRecord> records = GetList().GetRecords();
    titles.reserve(records.size());
    for (const TabRecord& record : records) {
        titles << record.title;
    }
    auto* popup = new TabListPopup(titles, GetList().GetCurrent(), m_window);
    connect(popup, &TabListPopup::SigChosen, this, &TabCommands::SigSelectRequested);
    popup->PopUp(anchor);
}

void TabCommands::ShowTabMenu(int index, const QPoint& position)
{
    const TabId id = GetList().GetId(index);
    const int count = GetList().GetCount();
    TabMenu::State state;
    state.canReload = m_tabs->GetTab(index)->HasPage();
    state.canClose = index > 0 && GetList().GetRecord(index).closable;
    state.hasOthers = count > 2 || (index == 0 && count > 1);
    auto* menu = new TabMenu(state, m_actions->Get(WindowAction::ReopenTab), m_window);
    connect(menu, &TabMenu::SigReload, this, [this, id] {
        if (BrowserTab* const tab = m_tabs->GetTab(GetList().IndexOf(id))) {
            tab->Reload();
        }
    });
    connect(menu, &TabMenu::SigClose, this, [this, id] { RequestClose(GetList().IndexOf(id)); });
    connect(menu, &TabMenu::SigCloseOthers, this, [this, id] { RequestCloseOthers(id); });
    menu->popup(position);
}

void TabCommands::ConnectTabActions()
{
    const auto on = [this](WindowAction action, const std::function<void()>& act) {
        m_actions->Connect(action, this, act);
    };
    on(WindowAction::NewTab, [this] { OpenStartTab(); });
    on(WindowAction::CloseTab, [this] { RequestClose(GetList().GetCurrent()); });
    on(WindowAction::ReopenTab, [this] { ReopenClosed(); });
    on(WindowAction::NextTab, [this] { SelectNext(1); });
    on(WindowAction::PreviousTab, [this] { SelectNext(-1); });
    on(WindowAction::MoveTabBack, [this] { MoveCurrent(-1); });
    on(WindowAction::MoveTabForward, [this] { MoveCurrent(1); });
    connect(m_actions, &WindowActions::SigNumberPressed, this, &TabCommands::SelectNumber);
}

void TabCommands::ConnectPageActions()
{
    const auto on = [this](WindowAction action, const std::function<void()>& act) {
        m_actions->Connect(action, this, act);
    };
    on(WindowAction::Find, [this] { m_tabs->GetCurrentTab()->OpenFind(); });
    on(WindowAction::ZoomIn, [this] { Zoom(&ZoomSteps::GetLarger); });
    on(WindowAction::ZoomOut, [this] { Zoom(&ZoomSteps::GetSmaller); });
    on(WindowAction::ActualSize, [this] { m_tabs->GetCurrentTab()->SetZoom(ZoomSteps::ActualSize); });
    on(WindowAction::Back, [this] { m_tabs->GetCurrentTab()->Back(); });
    on(WindowAction::Forward, [this] { m_tabs->GetCurrentTab()->Forward(); });
    on(WindowAction::Reload, [this] { m_tabs->GetCurrentTab()->Reload(); });
}

const TabList& TabCommands::GetList() const
{
    return m_tabs->GetList();
}

void TabCommands::RequestCloseOthers(TabId id)
{
    const int remaining = GetList().IndexOf(id);
    if (remaining < 0) {
        return; // its page closed it while the menu was open
    }
    // First, so that not each neighbour in turn is selected, and loaded, before it goes too.
    Q_EMIT SigSelectRequested(remaining);
    for (int index = GetList().GetCount() - 1; index > 0; --index) {
        if (GetList().GetId(index) != id && GetList().GetRecord(index).closable) {
            RequestClose(index);
        }
    }
}

void TabCommands::SelectNext(int step)
{
    const int count = GetList().GetCount();
    Q_EMIT SigSelectRequested((GetList().GetCurrent() + step + count) % count);
}

void TabCommands::SelectNumber(int number)
{
    Q_EMIT SigSelectRequested(number == 9 ? GetList().GetCount() - 1 : number - 1);
}

void TabCommands::MoveCurrent(int step)
{
    m_tabs->Move(GetList().GetCurrent(), GetList().GetCurrent() + step);
}

void TabCommands::Zoom(double (*step)(double))
{
    BrowserTab* const tab = m_tabs->GetCurrentTab();
    tab->SetZoom(step(tab->GetZoom()));
}
