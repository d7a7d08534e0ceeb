#pragma once

#include <QtCore/QObject>

#include <functional>
#include <memory>

class IDelay;
class MainWindow;

/// Says when the open tabs changed: their set, order, addresses, titles or icons, or the tab in front.
/// Announces the first change from the event loop at once and further ones at most every 500 ms; a page that
/// never stops changing its title does not delay it. GUI thread.
class OpenTabsWatch final : public QObject
{
    Q_OBJECT

public:
    static constexpr int Pause = 500; ///< [ms]

    explicit OpenTabsWatch(std::unique_ptr<IDelay> delay, QObject* parent = nullptr);
    ~OpenTabsWatch() override;

    /// Watches from now on, and announces what is open already by one `SigChanged`. Does not own `window`.
    void Start(MainWindow* window);
    /// Announces nothing more, not even a change that waits.
    void Stop();
    bool IsRunning() const noexcept { return m_running; }

Q_SIGNALS:
    void SigChanged();

private:
    void HandleChange();
    void Tell();

    std::unique_ptr<IDelay> m_delay;
    bool m_running = false;
    bool m_waiting = false; // a shot of the delay is on its way
    bool m_changed = false;
};
