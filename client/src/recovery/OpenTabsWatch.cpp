#include "recovery/OpenTabsWatch.h"

#include "system/IDelay.h"

#include "browser/MainWindow.h"

OpenTabsWatch::OpenTabsWatch(std::unique_ptr<IDelay> delay, QObject* parent)
    : QObject(parent), m_delay(std::move(delay))
{}

OpenTabsWatch::~OpenTabsWatch() = default;

void OpenTabsWatch::Start(MainWindow* window)
{
    m_running = true;
    connect(window, &MainWindow::SigTabOpened, this, &OpenTabsWatch::HandleChange);
    connect(window, &MainWindow::SigTabClosed, this, &OpenTabsWatch::HandleChange);
    connect(window, &MainWindow::SigTabMoved, this, &OpenTabsWatch::HandleChange);
    connect(window, &MainWindow::SigTabChanged, this, &OpenTabsWatch::HandleChange);
    connect(window, &MainWindow::SigTabSelected, this, &OpenTabsWatch::HandleChange);
    HandleChange();
}

void OpenTabsWatch::Stop()
{
    m_running = false;
    m_waiting = false;
    m_delay->Stop();
}

void OpenTabsWatch::HandleChange()
{
    if (!m_running) {
        return;
    }
    m_changed = true;
    if (!m_waiting) {
        // Several tabs that are opened in one go are told as one change.
        m_waiting = true;
        m_delay->Start(0, [this] { Tell(); });
    }
}

void OpenTabsWatch::Tell()
{
    m_waiting = m_changed;
    if (!m_changed) {
        return;
    }
    m_changed = false;
    m_delay->Start(Pause, [this] { Tell(); });
    Q_EMIT SigChanged();
}
