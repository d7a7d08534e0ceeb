#pragma once

#include "browser/TabRecord.h"

#include <QtCore/QDateTime>
#include <QtCore/QVector>

/// The tabs of a window at one moment, without the home tab and without those that cannot be opened again.
struct TabSet
{
    QDateTime when;          ///< UTC
    int current = -1;        ///< the place in `tabs` of the one in front; -1: another tab was
    QVector<TabRecord> tabs; ///< in the order of the window

    bool operator==(const TabSet& other) const
    {
        return when == other.when && current == other.current && tabs == other.tabs;
    }
};
