#pragma once

#include "http-module/BusinessParseResult.h"
#include "http-module/HttpModuleExport.h"
#include "http/IHttpResponseBase.h"

#include <QtCore/QSharedPointer>

/// A reply of the gateway, `{"code":"0","message":"","requestId":"…","data":…}`. It is a success when the
/// network did not fail, the code is "0" and the business value could be parsed. Codes from 5000 on, and
/// replies that cannot be read, are the gateway's own fault; any other code is a refusal.
class TL_HTTP_MODULE_EXPORT IHttpResponseDsm : public IHttpResponseBase
{
    Q_OBJECT

public:
    explicit IHttpResponseDsm(QObject* parent = nullptr);
    ~IHttpResponseDsm() override;

    void ParseJsonData(const QJsonValue& reply) override;
    void DoReset() override;

    /// Turns the reply's `data` into the response's own value. Called only for code "0". Null data is a
    /// matter of the implementation; a reply without `data` comes as an undefined value. A failure makes
    /// the outcome's code "parse" and its description the result's message. Never null.
    virtual QSharedPointer<BusinessParseResult> ParseBusinessData(const QJsonValue& data) = 0;

    /// Whether a successful reply is kept and a kept one serves when the network or the server fails.
    /// Off by default; set before sending.
    void SetAutoCache(bool enabled) noexcept;

    /// What the gateway's log calls this request; empty when no reply came.
    QString GetRequestId() const;

private:
    QString m_requestId;
};
