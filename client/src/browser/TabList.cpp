#include "TabList.h"

#include "TabOrder.h"

#include <algorithm>

TabList::TabList(QObject* parent) : QObject(parent) {}

int TabList::GetCount() const noexcept
{
    return m_records.size();
}

int TabList::GetCurrent() const noexcept
{
    return m_current;
}

TabId TabList::GetId(int index) const
{
    return m_entries.value(index).id;
}

int TabList::IndexOf(TabId id) const
{
    const auto it = std::find_if(m_entries.cbegin(), m_entries.cend(),
                                 [id](const Entry& entry) { return entry.id == id; });
    return it == m_entries.cend() ? -1 : static_cast<int>(it - m_entries.cbegin());
}

const TabRecord& TabList::GetRecord(int index) const
{
    return m_records.at(index);
}

QVector<TabRecord> TabList::GetRecords() const
{
    return m_records;
}

int TabList::Insert(TabId id, const TabRecord& record, int index)
{
    const int count = GetCount();
    int place = count;
    if (count > 0 && index >= 0 && index <= count) {
        place = std::max(1, index);
    }
    m_records.insert(place, record);
    m_entries.insert(place, {id, NoTab});
    const bool first = count == 0;
    m_current = first ? 0 : m_current + (place <= m_current ? 1 : 0);
    Q_EMIT SigInserted(place);
    if (first) {
        Q_EMIT SigCurrentChanged(0);
    }
    return place;
}

int TabList::FindPlaceBeside(TabId opener, bool inFront) const
{
    int place = IndexOf(opener) + 1;
    while (!inFront && place < GetCount() && m_entries.at(place).opener == opener) {
        ++place;
    }
    return place;
}

void TabList::SetOpener(TabId id, TabId opener)
{
    const int index = IndexOf(id);
    if (index < 0) {
        return;
    }
    m_entries[index].opener = opener;
    m_hasOpeners = true;
}

void TabList::Remove(int index, const TabRecord& reopenAs)
{
    if (index < 1 || index >= GetCount()) {
        return;
    }
    if (reopenAs.address.isValid() || !reopenAs.serviceCode.isEmpty()) {
        m_closed.append({reopenAs, index});
        if (m_closed.size() > MostClosed) {
            m_closed.removeFirst();
        }
    }
    const Entry removed = m_entries.takeAt(index);
    m_records.removeAt(index);
    const bool wasCurrent = index == m_current;
    if (index < m_current || m_current >= GetCount()) {
        --m_current;
    }
    if (wasCurrent) {
        const int opener = removed.opener == NoTab ? -1 : IndexOf(removed.opener);
        m_current = opener >= 0 ? opener : m_current;
        ForgetOpeners();
    } else if (m_hasOpeners) {
        for (Entry& entry : m_entries) {
            entry.opener = entry.opener == removed.id ? NoTab : entry.opener;
        }
    }
    const TabId current = GetId(m_current);
    Q_EMIT SigRemoved(index);
    if (wasCurrent && current == GetId(m_current)) { // otherwise a receiver has selected another one
        Q_EMIT SigCurrentChanged(m_current);
    }
}

void TabList::Clear()
{
    m_closed.clear();
    ForgetOpeners();
    if (GetCount() <= 1) {
        return;
    }
    m_records.resize(1);
    m_entries.resize(1);
    const bool wasCurrent = m_current == 0;
    m_current = 0;
    if (!wasCurrent) {
        Q_EMIT SigCurrentChanged(0);
    }
}

bool TabList::Move(int from, int to)
{
    if (from < 1 || to < 1 || from >= GetCount() || to >= GetCount() || from == to) {
        return false;
    }
    m_records.move(from, to);
    m_entries.move(from, to);
    m_current = TabOrder::Follow(m_current, from, to);
    Q_EMIT SigMoved(from, to);
    return true;
}

bool TabList::Select(int index)
{
    if (index < 0 || index >= GetCount() || index == m_current) {
        return false;
    }
    ForgetOpeners(); // a user who goes elsewhere is not brought back
    m_current = index;
    Q_EMIT SigCurrentChanged(index);
    return true;
}

void TabList::SetRecord(int index, const TabRecord& record)
{
    if (m_records.at(index) != record) { // or all of them would be copied where they are shared
        m_records[index] = record;
    }
    Q_EMIT SigChanged(index);
}

bool TabList::HasClosed() const noexcept
{
    return !m_closed.isEmpty();
}

std::optional<TabList::ClosedTab> TabList::TakeClosed()
{
    if (m_closed.isEmpty()) {
        return std::nullopt;
    }
    return m_closed.takeLast();
}

void TabList::ForgetOpeners()
{
    if (!m_hasOpeners) {
        return;
    }
    for (Entry& entry : m_entries) {
        entry.opener = NoTab;
    }
    m_hasOpeners = false;
}
