#pragma once

#include "http/HttpExport.h"

#include <QtCore/QString>
#include <QtCore/qglobal.h>

/// What a request says about keeping its reply. Keeps nothing by default.
class TL_HTTP_EXPORT IRequestCacheMethod
{
public:
    virtual ~IRequestCacheMethod();

    /// The key under which a reply of this request is kept. User, gateway, method and parameters all take
    /// part, so that no user ever sees another's reply. Empty, the default: the reply is not kept. Asked when
    /// the call is sent and again when it is over: a reply whose key has changed, because another user is
    /// signed in by now, is neither kept nor served.
    virtual QString GetCacheKey() const;
    /// Further parameters that distinguish kept replies; empty by default.
    virtual QString GetCTParam() const;
    /// The code that a reply must carry to be kept. Empty, the default: the response alone decides.
    virtual QString GetSuccessParam() const;

protected:
    IRequestCacheMethod() = default;
    Q_DISABLE_COPY(IRequestCacheMethod)
};
