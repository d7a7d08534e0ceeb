#pragma once

#include "http/HttpExport.h"

#include <QtCore/QString>
#include <QtCore/qglobal.h>

/// What a request says about keeping its reply. The defaults keep nothing.
class TL_HTTP_EXPORT IRequestCacheMethod
{
public:
    virtual ~IRequestCacheMethod();

    /// Under which key a reply of this request is kept: user, gateway, method and parameters all take
    /// part, so that no user ever sees another's reply. Empty, the default: a reply is not kept.
    /// Asked for when the call is sent and again when it is over: a reply whose key changed meanwhile,
    /// because another user is signed in by now, is neither kept nor served.
    virtual QString GetCacheKey() const;
    /// Parameters that distinguish kept replies beyond the key itself; empty by default.
    virtual QString GetCTParam() const;
    /// The code that a reply must carry to be kept; empty, the default: the response decides alone.
    virtual QString GetSuccessParam() const;

protected:
    IRequestCacheMethod() = default;
    Q_DISABLE_COPY(IRequestCacheMethod)
};
