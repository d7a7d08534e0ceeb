#include "app/tabs/RunningTabs.h"

#include "app/tabs/KeptTabsText.h"

#include "settings-store/VXSettingManager.h"

#include <QtCore/QPointer>
#include <QtCore/QThreadPool>

#include <utility>

namespace {

const QString section = QStringLiteral("CLIENT");
const QString runningField = QStringLiteral("RUNNING_TABS");

void Store(const QString& text)
{
    VXSettingManager::Instance()->SetUserValue(section, runningField, text);
}

} // namespace

RunningTabs::RunningTabs(QObject* parent) : QObject(parent) {}

RunningTabs::~RunningTabs()
{
    // A thread of the pool may be about to answer this object.
    QThreadPool::globalInstance()->waitForDone();
}

QString RunningTabs::GetText()
{
    return VXSettingManager::Instance()->GetUserValue(section, runningField);
}

void RunningTabs::Keep(const KeptTabs& tabs)
{
    if (m_last && m_last->current == tabs.current && m_last->tabs == tabs.tabs) {
        return; // pages tell of much that is nothing new
    }
    m_last = tabs;
    m_waiting = tabs;
    m_hasWaiting = true;
    if (!m_writing) {
        Write();
    }
}

void RunningTabs::KeepNow(const KeptTabs& tabs)
{
    Drop();
    Store(KeptTabsText::Write(tabs));
}

void RunningTabs::Clear()
{
    Drop();
    Store(QString());
}

void RunningTabs::Write()
{
    m_writing = true;
    m_hasWaiting = false;
    QThreadPool::globalInstance()->start([this, tabs = std::exchange(m_waiting, {}), round = m_round] {
        const QString text = KeptTabsText::Write(tabs);
        QMetaObject::invokeMethod(
            this,
            [this, text, round] {
                m_writing = false;
                if (round == m_round) {
                    Store(text);
                }
                if (m_hasWaiting) {
                    Write();
                }
            },
            Qt::QueuedConnection);
    });
}

void RunningTabs::Drop()
{
    ++m_round;
    m_last.reset();
    m_waiting = {};
    m_hasWaiting = false;
}
