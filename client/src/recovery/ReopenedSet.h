#pragma once

#include "recovery/TabSet.h"

#include <QtCore/QHash>
#include <QtCore/QQueue>
#include <QtCore/QString>

/// Tells the tabs of a set that is being reopened from all others, by their router URLs. An address may be
/// open more than once; its tabs come back in the order in which they were recorded.
class ReopenedSet final
{
public:
    explicit ReopenedSet(const TabSet& set);

    /// The next tab that is reopened has this router URL. Its record; one without title and icon when the set
    /// does not know it, because the module's own record was newer or more complete.
    TabRecord Claim(const QString& routerUrl);

    /// How many tabs were reopened, known or not.
    int GetReopened() const noexcept { return m_reopened; }
    /// How many tabs of the set did not come back. An unknown one stands in for a missing one: it may be that
    /// tab, with the page that it went to last.
    int GetLost() const noexcept;
    /// Which of the reopened tabs was in front, counted from 0; -1 when none of them was.
    int GetFront() const noexcept { return m_front; }

private:
    TabSet m_set;
    QHash<QString, QQueue<int>> m_waiting; ///< positions in the set that have not come back, by router URL
    int m_reopened = 0;
    int m_unknown = 0;
    int m_front = -1;
};
