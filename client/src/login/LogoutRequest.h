#pragma once

#include "gateway/UserRequest.h"
#include "login/Session.h"

/// Ends a session's access token, even after the client has dropped the session.
class LogoutRequest final : public UserRequest
{
    Q_OBJECT

public:
    explicit LogoutRequest(const Session& session, QObject* parent = nullptr)
        : UserRequest(QStringLiteral("dsm.tl.pc.user.logout"), session.pin, session.belongType, parent)
        , m_accessToken(session.accessToken)
    {}

    QString GetDsmAppendix(DsmType type) const override
    {
        return type == DsmType::AccessToken ? m_accessToken : UserRequest::GetDsmAppendix(type);
    }

private:
    QString m_accessToken;
};
