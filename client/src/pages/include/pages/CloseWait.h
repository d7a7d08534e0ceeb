#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <functional>

/// The time that a page has to say whether it may be closed. It does not run out while the page, or another
/// one, waits for the user's answer: meanwhile the engine hears of no page.
class CloseWait final : public QObject
{
    Q_OBJECT

public:
    /// `isUserAsked` says whether a question is open. The time is `Ticks` ticks [ms].
    explicit CloseWait(std::function<bool()> isUserAsked, int tick = 100, QObject* parent = nullptr);

    static constexpr int Ticks = 10;

    bool IsRunning() const;
    void Begin();
    /// The page has answered.
    void End();

Q_SIGNALS:
    /// The page has not answered; it waits no longer.
    void SigExpired();

private:
    void HandleTick();

    std::function<bool()> m_isUserAsked;
    QTimer m_timer;
    int m_ticks = 0; // since the wait began, or the last question was open
};
