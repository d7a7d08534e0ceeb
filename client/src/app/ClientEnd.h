#pragma once

#include "system/EndKind.h"

#include <QtCore/QString>

/// The way in which the client ends, and what follows from it. The first decision counts, but the end of the
/// whole session overrides a restart: there is nothing left to restart in. GUI thread.
class ClientEnd final
{
public:
    /// What a restart is to do, before it is decided on. `openTabs`: the open tabs come back, but for the one
    /// with the router URL `ignoreUrl`; empty for all.
    void PrepareRestart(bool openTabs, const QString& ignoreUrl);

    /// Only the first call decides.
    void Decide(EndKind kind) noexcept;
    /// The system wants the process gone.
    void HandleSystemEnd() noexcept;
    /// The client was taken down: nothing changes the way any more.
    void Close() noexcept { m_closed = true; }

    EndKind GetKind() const noexcept { return m_kind; }
    /// The same as seen by the tabs: a restart without them leaves as little behind as a quit.
    EndKind GetKindForTabs() const noexcept;
    const QString& GetIgnoredUrl() const noexcept { return m_ignoreUrl; }
    bool OpensTabsAgain() const noexcept { return m_openTabs; }

    /// The user is signed in no longer.
    bool EndsSession() const noexcept;
    /// The modules' `MainFrameQuit` is left out: it would clear what the next log-in needs.
    bool SkipsMainFrameQuit() const noexcept;
    /// Another process follows this one. Never while the system ends the session: it would start into that.
    bool WantsSuccessor() const noexcept;

private:
    EndKind m_kind = EndKind::Quit;
    QString m_ignoreUrl;
    bool m_openTabs = false;
    bool m_decided = false;
    bool m_systemEnds = false;
    bool m_closed = false;
};
