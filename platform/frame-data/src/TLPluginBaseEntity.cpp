#include "frame-data/TLPluginBaseEntity.h"

TLPluginBaseEntity::TLPluginBaseEntity(QObject* parent) : VXJsonParserBase(parent) {}

QString TLPluginBaseEntity::GetPluginName() const
{
    return m_name;
}

QString TLPluginBaseEntity::GetServiceCode() const
{
    return m_serviceCode;
}

QString TLPluginBaseEntity::GetIconUrl() const
{
    return m_iconUrl;
}

QString TLPluginBaseEntity::GetAddress() const
{
    return m_address;
}
