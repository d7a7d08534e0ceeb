#pragma once

#include "http/HttpExport.h"
#include "http/IHttpRequest.h"
#include "http/IRequestCacheMethod.h"

/// A request with the usual answers: no other host, not switched off, log line from the method name,
/// no kept reply.
class TL_HTTP_EXPORT IHttpRequestBase : public IHttpRequest, public IRequestCacheMethod
{
    Q_OBJECT

public:
    explicit IHttpRequestBase(QObject* parent = nullptr);
    ~IHttpRequestBase() override;

    QString GetHostIp() const override;
    QString GetLogInfo() const override;
    bool IsDegradeApi() const override;
    QString GetDegradeDescription() const override;
    void DoReset() override;

    QString GetCacheKey() const override;
    QString GetCTParam() const override;
    QString GetSuccessParam() const override;
};
