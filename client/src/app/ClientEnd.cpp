#include "ClientEnd.h"

void ClientEnd::PrepareRestart(bool openTabs, const QString& ignoreUrl)
{
    m_openTabs = openTabs;
    m_ignoreUrl = ignoreUrl;
}

void ClientEnd::Decide(EndKind kind) noexcept
{
    if (!m_decided) {
        m_decided = true;
        m_kind = kind;
    }
}

void ClientEnd::HandleSystemEnd() noexcept
{
    m_systemEnds = true;
    if (!m_closed && (!m_decided || m_kind == EndKind::Restart)) {
        m_decided = true;
        m_kind = EndKind::SystemEnd;
    }
}

EndKind ClientEnd::GetKindForTabs() const noexcept
{
    return m_kind == EndKind::Restart && !m_openTabs ? EndKind::Quit : m_kind;
}

bool ClientEnd::EndsSession() const noexcept
{
    return m_kind == EndKind::LogOut || m_kind == EndKind::Refused;
}

bool ClientEnd::SkipsMainFrameQuit() const noexcept
{
    return m_kind == EndKind::SystemEnd || m_kind == EndKind::Refused;
}

bool ClientEnd::WantsSuccessor() const noexcept
{
    return !m_systemEnds && (EndsSession() || m_kind == EndKind::Restart);
}
