#pragma once

#include "browser/TabRecord.h"

#include <QtCore/QDateTime>
#include <QtCore/QVector>

/// The tabs that were open at one moment, and what became of them.
struct EarlierTabSet
{
    enum class Reason
    {
        Offered,    ///< at the next start, and opened again
        Declined,   ///< offered, and answered No
        Dropped,    ///< nobody was asked
        Unreadable, ///< what was stored was damaged
        NotRestored ///< they were to come back, but not all did
    };

    QDateTime when; ///< when they were last seen open; may be invalid
    Reason reason = Reason::Dropped;
    QVector<TabRecord> tabs;
    bool incomplete = false; ///< some could not be read and are missing
};
