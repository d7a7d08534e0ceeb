#pragma once

#include <QtCore/QObject>

template <class T>
class ProcessWide;

/// Where the tabs of an interrupted run will come back from. The tabs of an interrupted run are not kept
/// yet: there is no record of them, so there is never anything to offer or to clear. GUI thread.
class TLRecoverManager final : public QObject
{
    Q_OBJECT

public:
    /// Made on first use, which has to be on the GUI thread.
    static TLRecoverManager* Instance();
    static void ReleaseInstance();

    /// Asked once after a log-in by hand. True: tabs were reopened, and nothing else is to open by itself.
    /// False as long as no record is kept.
    [[nodiscard]] bool Recover();
    /// An orderly end leaves nothing to recover. Does nothing as long as no record is kept.
    void Clear();

private:
    friend class ProcessWide<TLRecoverManager>;

    TLRecoverManager() = default;
    ~TLRecoverManager() override = default;

    Q_DISABLE_COPY(TLRecoverManager)
};
