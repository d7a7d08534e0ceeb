#pragma once

#include "system/EndKind.h"

#include <QtCore/QString>

/// How the client ends, and what follows from that. The first decision counts, except that the end of the
/// system's session overrides a restart, which would have nothing to start into. GUI thread.
class ClientEnd final
{
public:
    /// Says what a restart brings back; call before `Decide`. With `openTabs` the open tabs come back, except
    /// the one with the router URL `ignoreUrl`; an empty one excludes none.
    void PrepareRestart(bool openTabs, const QString& ignoreUrl);

    /// Only the first call counts.
    void Decide(EndKind kind) noexcept;
    /// The system wants the process to end.
    void HandleSystemEnd() noexcept;
    /// The client was taken down: nothing changes the kind after this.
    void Close() noexcept { m_closed = true; }

    EndKind GetKind() const noexcept { return m_kind; }
    /// The kind as it concerns the tabs: to them, a restart without tabs is a quit.
    EndKind GetKindForTabs() const noexcept;
    const QString& GetIgnoredUrl() const noexcept { return m_ignoreUrl; }
    bool OpensTabsAgain() const noexcept { return m_openTabs; }

    /// Whether the user is signed out.
    bool EndsSession() const noexcept;
    /// Whether the modules' `MainFrameQuit` is skipped, because it would clear what the next log-in needs.
    bool SkipsMainFrameQuit() const noexcept;
    /// Whether another process follows this one. Never while the system ends the session.
    bool WantsSuccessor() const noexcept;

private:
    EndKind m_kind = EndKind::Quit;
    QString m_ignoreUrl;
    bool m_openTabs = false;
    bool m_decided = false;
    bool m_systemEnds = false;
    bool m_closed = false;
};
