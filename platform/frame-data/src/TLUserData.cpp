#include "frame-data/TLUserData.h"

QString TLUserData::GetPin() const
{
    return m_pin;
}

QString TLUserData::GetBelongType() const
{
    return m_belongType;
}

void TLUserData::Set(const QString& pin, const QString& belongType)
{
    m_pin = pin;
    m_belongType = belongType;
}
