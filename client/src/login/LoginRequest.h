#pragma once

#include "http-module/IHttpRequestDsm.h"

/// Signs in with pin and password; answered with a `LoginEntity`. Its reply is never kept.
class LoginRequest final : public IHttpRequestDsm
{
    Q_OBJECT

public:
    LoginRequest(const QString& pin, const QString& password, QObject* parent = nullptr);
    ~LoginRequest() override;

    QString GetDsmMethod() const override;
    QByteArray GetBusinessParam() const override;
    QString GetCacheKey() const override;
    /// No token: a log-in does not depend on the one before.
    QString GetDsmAppendix(DsmType type) const override;

private:
    QString m_pin;
    QString m_password;
};
