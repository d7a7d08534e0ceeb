#pragma once

#include "http/IHttpRequestBase.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QUrl>

/// A request whose every answer a test can set, and that counts what it is asked.
class FakeRequest final : public IHttpRequestBase
{
public:
    explicit FakeRequest(const QUrl& address) : url(address.toString(QUrl::FullyEncoded)) {}

    QString GetApiUrl() const override { return url; }
    QString GetHostIp() const override { return hostIp; }
    QByteArray GetApiBody() override
    {
        ++bodies;
        return "attempt=" + QByteArray::number(resets);
    }
    QByteArray GetMethodName() const override { return "test.method"; }
    bool IsDegradeApi() const override { return switchedOff; }
    QString GetDegradeDescription() const override { return QStringLiteral("Closed for the night."); }
    void DoReset() override { ++resets; }
    QString GetCacheKey() const override { return cacheKey; }
    QString GetCTParam() const override { return cacheParameter; }
    QString GetSuccessParam() const override { return successParameter; }

    QString url;
    QString hostIp;
    QString cacheKey = QStringLiteral("user-a");
    QString cacheParameter;
    QString successParameter;
    bool switchedOff = false;
    int bodies = 0;
    int resets = 0;
};
