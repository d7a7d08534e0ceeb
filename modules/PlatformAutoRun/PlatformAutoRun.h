#pragma once

#include <QtCore/QObject>

template <class T>
class ProcessWide;

/// Opens the user's ticked entries in the main browser once they are known, and brings the one marked "Open
/// first" to the front. Opens at most once in its life, from a log-in to the end of the main window. GUI
/// thread.
class PlatformAutoRun final : public QObject
{
    Q_OBJECT

public:
    /// Made on first use, on the GUI thread.
    static PlatformAutoRun* Instance();
    /// Drops an opening that is still queued. The next log-in gets a new object.
    static void ReleaseInstance();

    /// Queues an attempt to open; opens nothing inside this call. Without a browser, or before the
    /// configuration is known, the attempt does nothing and may be repeated.
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
