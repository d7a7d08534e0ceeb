#pragma once

#include "http/HttpExport.h"
#include "http/IHttpRequest.h"
#include "http/IRequestCacheMethod.h"

/// A request with the usual answers: no other host, not switched off, log line from the method name, no kept
/// reply.
///
/// It deliberately does not override the operations of `IRequestCacheMethod`: some compilers give such an
/// override a slot among the request's own operations, and derived classes rely on those slots.
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
};
