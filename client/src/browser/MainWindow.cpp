#include "browser/MainWindow.h"

#include "BrowserTab.h"
#include "MainWindowPrivate.h"
#include "TabStrip.h"
#include "look/SymbolicIcon.h"
#include "notices/NoticeBar.h"

#include "frame-data/PluginOpenInfo.h"
#include "frame-data/TLUrlUtils.h"
#include "frame-data/TabOpenInfo.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QIcon>
#include <QtWidgets/QAction>
#include <QtWidgets/QActionGroup>
#include <QtWidgets/QMenu>

#include <algorithm>

MainWindow::MainWindow(const MainWindowServices& services, QWidget* parent) : QMainWindow(parent)
{
    d = std::make_unique<MainWindowPrivate>(this, services);
    setObjectName(QStringLiteral("main_window"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/tl-client.svg")));
}

MainWindow::~MainWindow()
{
    if (d->m_geometryTimer.isActive())
        d->StoreGeometry();
    // Tabs that were closed a moment ago still wait to be deleted; pages go before what makes them.
    qDeleteAll(findChildren<BrowserTab*>(QString(), Qt::FindDirectChildrenOnly));
}

int MainWindow::GetTabCount() const
{
    return d->GetCount();
}

void MainWindow::SelectTab(int index)
{
    d->Select(index);
}

IBrowserTab* MainWindow::GetTab(int index) const
{
    return d->GetTab(index);
}

QWidget* MainWindow::GetMainWidget() const
{
    return const_cast<MainWindow*>(this);
}

void MainWindow::OpenPlugin(const PluginOpenInfo& info, int index)
{
    if (d->m_ended)
        return;
    TabRecord origin = d->MakeAppOrigin(info.serviceCode);
    origin.title = info.title;
    origin.iconUrl = info.iconUrl;
    origin.delayed = info.isDelay;
    d->OpenAsked(origin, index, info.activation == QLatin1String("1"));
}

void MainWindow::OpenUrl(const TabOpenInfo& info, int index)
{
    if (d->m_ended)
        return;
    TabRecord origin;
    origin.title = info.title;
    origin.iconUrl = info.iconUrl;
    origin.closable = info.closable;
    origin.delayed = info.isDelay;
    origin.remember = info.remember;
    origin.address = TLUrlUtils::ToWebUrl(info.address);
    if (!origin.address.isValid()) {
        origin.trouble = TabRecord::Trouble::RefusedAddress;
        origin.text = info.address;
    }
    d->OpenAsked(origin, index, info.activate);
}

void MainWindow::SetOpenDelayed(bool on)
{
    d->m_openDelayed = on;
}

void MainWindow::BeginReopening(const TabClaim& claim)
{
    d->m_claim = claim;
    d->m_toLoad = reopenedAtOnce;
}

void MainWindow::EndReopening()
{
    d->m_claim = {};
    d->BeginWaiting();
}

bool MainWindow::IsTabDelayed(int index) const
{
    const BrowserTab* tab = d->GetTab(index);
    return tab && tab->IsDelayed();
}

int MainWindow::GetCurrentTab() const noexcept
{
    return d->m_current;
}

QString MainWindow::GetTabAddress(int index) const
{
    const BrowserTab* tab = d->GetTab(index);
    return tab ? QString::fromLatin1(tab->GetAddress().toEncoded()) : QString();
}

void MainWindow::CloseTab(int index)
{
    d->Close(index);
}

void MainWindow::MoveTab(int from, int to)
{
    d->Move(from, to);
}

void MainWindow::OpenStartTab()
{
    d->OpenStartTab();
}

NoticeBar* MainWindow::GetNoticeBar() const noexcept
{
    return d->m_notices;
}

void MainWindow::AddMenuAction(QAction* action)
{
    d->m_menu->insertAction(d->m_menuGap, action);
    addAction(action);
}

void MainWindow::AddTabAction(QAction* action)
{
    d->m_menu->insertAction(d->m_tabGap, action);
    addAction(action);
}

void MainWindow::SetCloseGuard(const std::function<bool()>& guard)
{
    d->m_closeGuard = guard;
}

void MainWindow::CloseAllTabs()
{
    d->CloseAll();
}

bool MainWindow::IsLoading() const noexcept
{
    return !d->m_waitingTabs.empty() ||
           std::any_of(d->m_tabs.begin(), d->m_tabs.end(), [](const auto& tab) { return tab->IsLoading(); });
}

void MainWindow::SetTheme(Theme theme)
{
    const QList<QAction*> actions = d->m_themes->actions();
    for (QAction* action : actions)
        action->setChecked(action->data().toInt() == static_cast<int>(theme));
}

void MainWindow::SetLanguage(const QString& language)
{
    const QList<QAction*> actions = d->m_languages->actions();
    for (QAction* action : actions)
        action->setChecked(action->data().toString() == language);
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange && d)
        d->Retranslate();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (d->m_closeGuard && !d->m_closeGuard()) {
        event->ignore();
        Q_EMIT SigQuitRequested();
        return;
    }
    d->StoreGeometry();
    event->accept();
}

void MainWindow::moveEvent(QMoveEvent* event)
{
    QMainWindow::moveEvent(event);
    if (d)
        d->m_geometryTimer.start();
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    if (!d)
        return;
    d->m_geometryTimer.start();
    d->PlaceHoverLabel();
}
