#include "recovery/OpenTabsRecord.h"

#include "TabSetText.h"

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

OpenTabsRecord::OpenTabsRecord(QObject* parent) : QObject(parent) {}

OpenTabsRecord::~OpenTabsRecord()
{
    // A thread of the pool may be about to answer this object.
    QThreadPool::globalInstance()->waitForDone();
}

QString OpenTabsRecord::GetText()
{
    return VXSettingManager::Instance()->GetUserValue(section, runningField);
}

void OpenTabsRecord::Keep(const TabSet& tabs)
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
    QThreadPool::globalInstance()->start([this, tabs = std::exchange(m_waiting, {}), round = m_round] {
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
