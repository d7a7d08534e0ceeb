#pragma once

#include "http-module/IHttpRequestDsm.h"

#include <QtCore/QJsonObject>

/// A call on behalf of a user: says who asks, and nothing else.
class UserRequest : public IHttpRequestDsm
{
    Q_OBJECT

public:
    /// `dsmMethod` is the gateway method; the user who is signed in now asks.
    explicit UserRequest(const QString& dsmMethod, QObject* parent = nullptr);
    /// The same for a named user.
    UserRequest(const QString& dsmMethod, const QString& pin, const QString& belongType,
                QObject* parent = nullptr);
    ~UserRequest() override;

    QString GetDsmMethod() const override;
    QByteArray GetBusinessParam() const override;

private:
    QString m_method;
    QJsonObject m_param;
};
