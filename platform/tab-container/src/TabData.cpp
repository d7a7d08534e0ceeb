#include "tab-container/TabData.h"

TabData::TabData(int type, const QString& title, const QString& iconUrl)
    : m_title(title), m_iconUrl(iconUrl), m_type(type)
{}

QString TabData::GetTitle() const
{
    return m_title;
}

QString TabData::GetIconUrl() const
{
    return m_iconUrl;
}

int TabData::GetType() const noexcept
{
    return m_type;
}

void TabData::SetTitle(const QString& title)
{
    m_title = title;
}

void TabData::SetIconUrl(const QString& iconUrl)
{
    m_iconUrl = iconUrl;
}
