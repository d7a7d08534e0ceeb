#include "browser/MainWindow.h"

#include "BrowserTab.h"
#include "MainWindowPrivate.h"
#include "WindowMenu.h"
#include "look/SymbolicIcon.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QIcon>

MainWindow::MainWindow(const MainWindowServices& services, QWidget* parent) : QMainWindow(parent)
{
    d = std::make_unique<MainWindowPrivate>(this, services);
    setObjectName(QStringLiteral("main_window"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/tl-client.svg")));
}

MainWindow::~MainWindow() = default;

int MainWindow::GetTabCount() const
{
    return d->GetList().GetCount();
}

void MainWindow::SelectTab(int index)
{
    d->Select(index);
}

IBrowserTab* MainWindow::GetTab(int index) const
{
    return d->GetTabs().GetTab(index);
}

QWidget* MainWindow::GetMainWidget() const
{
    return const_cast<MainWindow*>(this);
}

void MainWindow::OpenPlugin(const PluginOpenInfo& info, int index)
{
    d->OpenPlugin(info, index);
}

void MainWindow::OpenUrl(const TabOpenInfo& info, int index)
{
    d->OpenUrl(info, index);
}

void MainWindow::SetOpenDelayed(bool on)
{
    d->SetOpenDelayed(on);
}

void MainWindow::BeginReopening(const TabClaim& claim)
{
    d->BeginReopening(claim);
}

void MainWindow::EndReopening()
{
    d->EndReopening();
}

QVector<TabRecord> MainWindow::GetTabRecords() const
{
    return d->GetList().GetRecords();
}

bool MainWindow::IsTabDelayed(int index) const
{
    return d->GetTabs().GetTab(index) && d->GetList().GetRecord(index).delayed;
}

int MainWindow::GetCurrentTab() const noexcept
{
    return d->GetList().GetCurrent();
}

QString MainWindow::GetTabAddress(int index) const
{
    const BrowserTab* const tab = d->GetTabs().GetTab(index);
    return tab ? QString::fromLatin1(tab->GetRecord().address.toEncoded()) : QString();
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
    return d->GetNoticeBar();
}

void MainWindow::AddMenuAction(QAction* action)
{
    d->GetMenu()->AddEntry(action);
    addAction(action);
}

void MainWindow::AddTabAction(QAction* action)
{
    d->GetMenu()->AddTabEntry(action);
    addAction(action);
}

void MainWindow::SetCloseGuard(const std::function<bool()>& guard)
{
    d->SetCloseGuard(guard);
}

void MainWindow::CloseAllTabs()
{
    d->CloseAll();
}

bool MainWindow::IsLoading() const noexcept
{
    return d->GetTabs().IsLoading();
}

void MainWindow::SetTheme(Theme theme)
{
    d->GetMenu()->SetTheme(theme);
}

void MainWindow::SetLanguage(const QString& language)
{
    d->GetMenu()->SetLanguage(language);
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange && d) {
        d->Retranslate();
    }
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (d->AgreeToClose()) {
        event->accept();
    } else {
        event->ignore();
        Q_EMIT SigQuitRequested();
    }
}

void MainWindow::moveEvent(QMoveEvent* event)
{
    QMainWindow::moveEvent(event);
    if (d) {
        d->HandleMoved();
    }
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    if (d) {
        d->HandleResized();
    }
}
