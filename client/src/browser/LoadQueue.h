#pragma once

#include "TabId.h"
#include "browser/TabRecord.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QTimer>

#include <deque>
#include <functional>
#include <optional>

/// The tabs of a set that is being reopened which load without being selected. The page in front loads first;
/// then they follow one by one. Knows no widgets and does not load itself. GUI thread.
class LoadQueue final : public QObject
{
    Q_OBJECT

public:
    /// The record of a tab of the set, by the router URL that the new tab has; empty for any other tab.
    using Claim = std::function<std::optional<TabRecord>(const QString& routerUrl)>;

    /// `isPageInFront` says whether the current tab has a page, which then goes first, for at most
    /// `frontGoesFirst` [ms].
    LoadQueue(int frontGoesFirst, const std::function<bool()>& isPageInFront, QObject* parent = nullptr);

    /// A set is being reopened until `End`; the first `count` of its tabs load without being selected.
    void Begin(const Claim& claim, int count);
    /// The set is complete: its tabs load, in their order, from the next turn of the event loop on.
    void End();

    /// Fits an opening into the set: a tab of the set gets the title and icon that it lacks and stays
    /// unloaded, unless it is to come to the front. Asks for the claim once. True when the tab is to be
    /// appended once it stands.
    bool Admit(TabRecord& record, bool activate);
    /// The tab waits for its turn.
    void Append(TabId tab);
    /// Whether no tab waits for its turn.
    bool IsEmpty() const noexcept;

    /// The page in front has finished loading, or failed.
    void HandleFrontLoaded();

Q_SIGNALS:
    /// It is the tab's turn. It may be closed or loaded by now.
    void SigTurn(TabId tab);
    /// The last of them has had its turn.
    void SigEmpty();

private:
    enum class State
    {
        Idle,
        FrontLoads, // until the timer ends
        Loading
    };

    void LoadNext();

    const std::function<bool()> m_isPageInFront;
    const int m_frontGoesFirst;
    Claim m_claim;
    int m_left = 0; // how many of the set may still join
    std::deque<TabId> m_tabs;
    State m_state = State::Idle;
    QTimer m_turn;
};
