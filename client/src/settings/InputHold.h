#pragma once

#include "WidgetPlace.h"

#include <QtCore/QEvent>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QSet>

#include <deque>
#include <memory>

class HttpManagerProxy;
class QMouseEvent;
class QWidget;

/// While a change that the user made on a page is on its way, holds the mouse and keys that go to the page,
/// and delivers them in order when the answer is there; the first of them that makes another change has the
/// rest wait again. A change is a write that starts while the page deals with input. Drops input for what the
/// user's own earlier input has removed, and the second half of a double click that hits something other than
/// the first half did. A disabled page gets no input at all. GUI thread.
class InputHold final : public QObject
{
    Q_OBJECT

public:
    /// `calls` is not owned and outlives this.
    explicit InputHold(HttpManagerProxy* calls, QObject* parent = nullptr);
    ~InputHold() override;

    /// The page whose input this watches from now on; null: none yet. Held input finds its place in it.
    void SetPage(QWidget* page);

    /// Holds input even while nothing is on its way, such as while the page is rebuilt.
    void SetBlocked(bool blocked);

    /// Whether a change is on its way or input waits for its turn.
    bool IsBusy() const noexcept;
    /// Whether a change is on its way.
    bool IsInFlight() const noexcept { return !m_calls.isEmpty(); }
    /// Whether code of the page runs because of input, such as while it has a dialog open.
    bool IsPageDealing() const noexcept { return m_inputLevel >= 0 || m_delivering > 0; }
    /// Whether the page's code for input runs right now, not in an event loop that it waits in.
    bool IsInInput() const;
    /// Whether input waits.
    bool HasHeld() const noexcept { return !m_held.empty(); }
    /// Forgets the input that waits.
    void Drop();

Q_SIGNALS:
    void SigBusyChanged(bool busy);
    /// A change failed, before the page hears of it.
    void SigChangeFailed(const QString& code, const QString& description);
    /// Held input was dropped: its part of the page is gone since the page was rebuilt.
    void SigInputLost();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Held
    {
        std::unique_ptr<QEvent> event;
        QPointer<QWidget> target;
        WidgetPlace place;
        int page; ///< the number of the page that it was meant for
        bool isKey;
    };

    bool IsPartOfPage(const QWidget* widget) const;
    void BeginInput();
    bool EndInputIfOver();
    void EndInput();
    bool IsPassedOn(const QWidget* widget, const QMouseEvent& event) const;
    bool AcceptMouse(QWidget* widget, QEvent::Type type);
    QWidget* FindTarget(const Held& held) const;
    void Hold(QWidget* widget, const QEvent* event);
    void Deliver();
    void Announce();
    void HandleStart(quint64 call, bool isWrite);
    void HandleAnswer(quint64 call, bool succeeded, const QString& code, const QString& description);
    void HandleEnd(quint64 call);

    QPointer<QWidget> m_page;
    int m_pageNumber = 0; ///< counts the pages
    std::deque<Held> m_held;
    QSet<quint64> m_calls; ///< the changes on their way
    int m_inputLevel = -1; ///< of the event loop in which the page deals with input; -1: it does not
    int m_delivering = 0;
    QPointer<QWidget> m_pressed;            ///< where the last press went that reached the page
    QPointer<QWidget> m_last;               ///< where the last mouse event came by on its way up the page
    ulong m_lastTime = 0;                   ///< of that event
    QEvent::Type m_lastType = QEvent::None; ///< likewise
    bool m_releaseDropped = false;          ///< the next release belongs to a press that was dropped
    bool m_blocked = false;
    bool m_tabbed = false; ///< of what waited, a Tab has been delivered
    bool m_wasBusy = false;
};
