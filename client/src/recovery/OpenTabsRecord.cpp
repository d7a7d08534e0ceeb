#include "recovery/OpenTabsRecord.h"

#include "TabSetText.h"

#include "settings-store/VXSettingManager.h"

#include <QtCore/QThreadPool>

#include <utility>

namespace {

const QString Section = QStringLiteral("CLIENT");
const QString RunningField = QStringLiteral("RUNNING_TABS");

void Store(const QString& text)
{
    VXSettingManager::Instance()->SetUserValue(Section, RunningField, text);
}

} // namespace

OpenTabsRecord::OpenTabsRecord(QThreadPool* thread, QObject* parent) : QObject(parent), m_thread(thread) {}

OpenTabsRecord::~OpenTabsRecord()
{
    m_thread->waitForDone(); // it answers this object
}

QString OpenTabsRecord::GetText()
{
    return VXSettingManager::Instance()->GetUserValue(Section, RunningField);
}

void OpenTabsRecord::Keep(const TabSet& tabs)
{
    if (m_last && m_last->current == tabs.current && m_last->tabs == tabs.tabs) {
        return; // pages often announce what they announced before
    }
    m_last = tabs;
    m_waiting = tabs;
    m_hasWaiting = true;
    if (!m_writing) {
        Write();
    }
}

void OpenTabsRecord::KeepNow(const TabSet& tabs)
{
    Drop();
    Store(TabSetText::Write(tabs));
}

void OpenTabsRecord::Clear()
{
    Drop();
    Store(QString());
}

void OpenTabsRecord::Write()
{
    m_writing = true;
    m_hasWaiting = false;
    m_thread->start([this, tabs = std::exchange(m_waiting, {}), round = m_round] {
        const QString text = TabSetText::Write(tabs);
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

void OpenTabsRecord::Drop()
{
    ++m_round;
    m_last.reset();
    m_waiting = {};
    m_hasWaiting = false;
}
