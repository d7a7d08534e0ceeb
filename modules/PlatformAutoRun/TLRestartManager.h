#pragma once

#include <QtCore/QObject>

template <class T>
class ProcessWide;

/// Where the tabs will come back from after the client restarted itself. The tabs of a run that ended in
/// a restart are not kept yet: there is no record of them to reopen or to clear. GUI thread.
class TLRestartManager final : public QObject
{
    Q_OBJECT

public:
    /// Made on first use, which has to be on the GUI thread.
    static TLRestartManager* Instance();
    static void ReleaseInstance();

    /// Reopens the tabs of the run before, without asking. Does nothing as long as no record is kept.
    void Restore();
    /// Called last after every log-in: a record serves once at the most. Does nothing as long as no record
    /// is kept.
    void Clear();

private:
    friend class ProcessWide<TLRestartManager>;

    TLRestartManager() = default;
    ~TLRestartManager() override = default;

    Q_DISABLE_COPY(TLRestartManager)
};
