#include "core/TLGlobalData.h"

TLGlobalData* TLGlobalData::Instance()
{
    static TLGlobalData instance;
    return &instance;
}

QString TLGlobalData::GetPin() const
{
    return m_pin;
}

QString TLGlobalData::GetBelongType() const
{
    return m_belongType;
}

QString TLGlobalData::GetUUID() const
{
    return m_uuid;
}

void TLGlobalData::SetUser(const QString& pin, const QString& belongType)
{
    if (m_pin == pin && m_belongType == belongType) {
        return;
    }
    m_pin = pin;
    m_belongType = belongType;
    Q_EMIT SigUserChanged();
}

void TLGlobalData::ClearUser()
{
    SetUser(QString(), QString());
}

void TLGlobalData::SetUUID(const QString& uuid)
{
    m_uuid = uuid;
}
