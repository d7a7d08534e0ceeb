#pragma once

#include "http-module/IHttpRequestDsm.h"

/// A gateway request whose method and business JSON a test sets.
class FakeDsmRequest final : public IHttpRequestDsm
{
public:
    QString GetDsmMethod() const override { return method; }
    QByteArray GetBusinessParam() const override { return business; }

    using IHttpRequestDsm::m_parameters;

    QString method = QStringLiteral("dsm.test.echo");
    QByteArray business = R"({"param":{"pin":"demo"}})";
};
