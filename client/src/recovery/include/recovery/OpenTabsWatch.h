#pragma once

#include <QtCore/QObject>

#include <functional>
#include <memory>

class IDelay;
class MainWindow;

/// Says when the open tabs are to be kept: after a change of their set, order, addresses, titles or icons,
/// or of the tab in front. The first change is told from the event loop at once, further ones at most every
/// 500 ms; a page that never stops changing its title does not put it off. GUI thread.
class OpenTabsWatch final : public QObject
{
    Q_OBJECT

public:
    static constexpr int pause = 500; ///< [ms]

    explicit OpenTabsWatch(std::unique_ptr<IDelay> delay, QObject* parent = nullptr);
    ~OpenTabsWatch() override;

    /// From now on, with one `SigKeep` for what stands already. `window` is not owned.
    void Start(MainWindow* window);
    /// Nothing more is told, whatever has changed.
    void Stop();
    bool IsRunning() const noexcept { return m_running; }

Q_SIGNALS:
    void SigKeep();

private:
    void TakeChange();
    void Tell();

    std::unique_ptr<IDelay> m_delay;
    bool m_running = false;
    bool m_waiting = false; // a shot of the delay is on its way
    bool m_changed = false;
};
