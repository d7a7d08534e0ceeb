#include "LoginEntity.h"

Session LoginEntity::ToSession() const
{
    Session session;
    if (m_accessToken.isEmpty() || m_pin.isEmpty()) {
        return session;
    }
    session.pin = m_pin;
    session.belongType = m_belongType;
    session.accessToken = m_accessToken;
    session.expiresAt = QDateTime::fromString(m_expiresAt, QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    session.expiresAt.setTimeSpec(Qt::UTC);
    return session;
}
