#include "frame-data/AsyncInfoManager.h"

bool AsyncInfoManager::IsNormalLogin() const noexcept
{
    return m_normalLogin;
}

bool AsyncInfoManager::IsOpen() const noexcept
{
    return m_open;
}

void AsyncInfoManager::SetNormalLogin() noexcept
{
    m_normalLogin = true;
    m_open = false;
}

void AsyncInfoManager::SetRestart(bool openTabs) noexcept
{
    m_normalLogin = false;
    m_open = openTabs;
}
