#pragma once

#include "http-module/BusinessParseResult.h"
#include "http-module/HttpModuleExport.h"
#include "http/IHttpResponseBase.h"

#include <QtCore/QSharedPointer>

/// A reply of the gateway, `{"code":"0","message":"","requestId":"…","data":…}`. It is a success when the
/// network did not fail, the code is "0" and the business value could be parsed. Codes from 5000 on, and
/// unreadable replies, are the gateway's own fault; any other code is a refusal.
class TL_HTTP_MODULE_EXPORT IHttpResponseDsm : public IHttpResponseBase
{
    Q_OBJECT

public:
    explicit IHttpResponseDsm(QObject* parent = nullptr);
    ~IHttpResponseDsm() override;

    void ParseJsonData(const QJsonValue& reply) override;
    void DoReset() override;

    /// Turns the reply's `data` into the response's own value. Called only for code "0". The derived class
    /// decides what null means; a reply without `data` comes as an undefined value. A failure makes "parse"
    /// the outcome's code, and the result's message its description. Never null.
    virtual QSharedPointer<BusinessParseResult> ParseBusinessData(const QJsonValue& data) = 0;

    /// Whether a successful reply is kept, and a kept one serves when the network or the server fails. Off by
    /// default. A call with this switched on counts as a read (`HttpCallKind`), so never switch it on for a
    /// call that changes something. Set it before sending. It has no effect while the request has no cache
    /// key, such as when nobody is signed in.
    void SetAutoCache(bool enabled) noexcept;

    /// The gateway's name for this request in its log; empty when no reply came.
    QString GetRequestId() const;

private:
    QString m_requestId;
};
