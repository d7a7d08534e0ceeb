#include "LoadQueue.h"

LoadQueue::LoadQueue(int frontGoesFirst, const std::function<bool()>& isPageInFront, QObject* parent)
    : QObject(parent), m_isPageInFront(isPageInFront), m_frontGoesFirst(frontGoesFirst)
{
    m_turn.setSingleShot(true);
    connect(&m_turn, &QTimer::timeout, this, &LoadQueue::LoadNext);
}

void LoadQueue::Begin(const Claim& claim, int count)
{
    m_claim = claim;
    m_left = count;
}

void LoadQueue::End()
{
    m_claim = {};
    if (m_tabs.empty() || m_state == State::Loading) {
        return;
    }
    m_state = State::FrontLoads;
    m_turn.start(m_frontGoesFirst);
    // By then the right tab has been brought to the front.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_state == State::FrontLoads && !m_isPageInFront()) {
                LoadNext();
            }
        },
        Qt::QueuedConnection);
}

bool LoadQueue::Admit(TabRecord& record, bool activate)
{
    const std::optional<TabRecord> claimed = m_claim ? m_claim(record.routerUrl) : std::nullopt;
    if (!claimed) {
        return false;
    }
    if (record.title.isEmpty()) {
        record.title = claimed->title;
        if (record.iconUrl.isEmpty()) {
            record.iconUrl = claimed->iconUrl;
        }
    }
    if (record.delayed || activate) {
        return false;
    }
    record.delayed = true;
    if (m_left <= 0) {
        return false;
    }
    --m_left;
    return true;
}

void LoadQueue::Append(TabId tab)
{
    m_tabs.push_back(tab);
}

bool LoadQueue::IsEmpty() const noexcept
{
    return m_tabs.empty();
}

void LoadQueue::HandleFrontLoaded()
{
    if (m_state == State::FrontLoads) {
        LoadNext();
    }
}

void LoadQueue::LoadNext()
{
    if (m_tabs.empty()) {
        m_state = State::Idle;
        return;
    }
    m_state = State::Loading;
    m_turn.stop();
    const TabId tab = m_tabs.front();
    m_tabs.pop_front();
    Q_EMIT SigTurn(tab);
    if (m_tabs.empty()) {
        m_state = State::Idle;
        Q_EMIT SigEmpty();
    } else {
        m_turn.start(0); // the window answers between one page and the next
    }
}
