#pragma once

#include <QtCore/QObject>

template <class T>
class ProcessWide;

/// Opens the user's ticked entries in the main browser once they are known, and brings the one that is
/// marked as the first to the front. Opens at most once in its life, which lasts from a log-in to the end
/// of the main frame. GUI thread.
class PlatformAutoRun final : public QObject
{
    Q_OBJECT

public:
    /// Made on first use, which has to be on the GUI thread.
    static PlatformAutoRun* Instance();
    /// An opening that is still queued is dropped. The next log-in gets a new object.
    static void ReleaseInstance();

    /// Queues an attempt to open; nothing opens inside this call. An attempt without a browser, or before
    /// the configuration is known, does nothing and may be repeated.
    void OpenUrlList();

private Q_SLOTS:
    void SlotOpenUrlList();

private:
    friend class ProcessWide<PlatformAutoRun>;

    PlatformAutoRun() = default;
    ~PlatformAutoRun() override = default;

    Q_DISABLE_COPY(PlatformAutoRun)

    bool m_opened = false;
};
