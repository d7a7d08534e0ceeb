#pragma once

#include "http-module/IHttpRequestDsm.h"

/// Logs in with pin and password; the reply is a `LoginEntity`, which is never cached.
class LoginRequest final : public IHttpRequestDsm
{
    Q_OBJECT

public:
    LoginRequest(const QString& pin, const QString& password, QObject* parent = nullptr);
    ~LoginRequest() override;

    QString GetDsmMethod() const override;
    QByteArray GetBusinessParam() const override;
    QString GetCacheKey() const override;
    /// Sends no access token: a log-in does not depend on an earlier one.
    QString GetDsmAppendix(DsmType type) const override;

private:
    QString m_pin;
    QString m_password;
};
