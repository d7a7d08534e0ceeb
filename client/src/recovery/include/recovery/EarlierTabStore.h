#pragma once

#include "recovery/TabSet.h"

#include <QtCore/QString>
#include <QtCore/QVector>

/// The tabs of the last runs that did not end in good order, per user, in the settings store. A set is stored
/// as its run left it, even when it is damaged. GUI thread.
class EarlierTabStore final
{
public:
    static constexpr int Limit = 5; ///< sets; the oldest makes room

    /// What became of a set.
    enum class Fate
    {
        Dropped, ///< nobody was asked
        Declined,
        Reopened,
        NotWhole ///< some came back, or some could not be read
    };

    struct Set
    {
        Fate fate = Fate::Dropped;
        bool whole = true; ///< false: some of it could not be read
        TabSet tabs;
    };

    EarlierTabStore() = delete;

    /// Adds the text of a run's record as the newest set, or changes the fate of the set with this text.
    static void Add(const QString& text, Fate fate);

    /// The newest first. A set of which nothing can be read is left out.
    static QVector<Set> GetSets();
};
