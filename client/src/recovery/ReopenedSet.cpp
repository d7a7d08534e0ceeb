#include "ReopenedSet.h"

#include <algorithm>

ReopenedSet::ReopenedSet(const TabSet& set) : m_set(set)
{
    for (int position = 0; position < m_set.tabs.size(); ++position) {
        m_waiting[m_set.tabs.at(position).routerUrl].enqueue(position);
    }
}

TabRecord ReopenedSet::Claim(const QString& routerUrl)
{
    const int number = m_reopened++;
    const auto waiting = m_waiting.find(routerUrl);
    if (waiting == m_waiting.end()) {
        ++m_unknown;
        return TabRecord{routerUrl};
    }
    if (waiting->isEmpty()) {
        return TabRecord{routerUrl}; // once more than it was open
    }
    const int position = waiting->dequeue();
    if (position == m_set.current) {
        m_front = number;
    }
    return m_set.tabs.at(position);
}

int ReopenedSet::GetLost() const noexcept
{
    int waiting = 0;
    for (const QQueue<int>& positions : m_waiting) {
        waiting += positions.size();
    }
    return std::max(0, waiting - m_unknown);
}
