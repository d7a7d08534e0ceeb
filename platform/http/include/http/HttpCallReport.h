#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMetaType>
#include <QtCore/QString>

/// How one call ended, for bars, logs and traces; holds no secrets.
struct HttpCallReport
{
    QByteArray method;       ///< `IHttpRequest::GetMethodName`
    QString code;            ///< the outcome's code
    QString description;     ///< what went wrong; empty after a success
    QString failureCode;     ///< with `fromCache`: the code of the failure for which the kept reply stands in
    QString failure;         ///< with `fromCache`: its description
    qint64 milliseconds = 0; ///< from `Send` to the outcome
    int attempts = 0;        ///< how often the call was tried
    bool ok = false;         ///< `IHttpResponse::IsSuccess`
    bool fromCache = false;  ///< a kept reply served
};

Q_DECLARE_METATYPE(HttpCallReport)
