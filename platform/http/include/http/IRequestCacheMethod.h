#pragma once

#include "http/HttpExport.h"

#include <QtCore/QString>
#include <QtCore/qglobal.h>

/// What a request says about keeping its reply.
class TL_HTTP_EXPORT IRequestCacheMethod
{
public:
    virtual ~IRequestCacheMethod();

    /// Under which key a reply of this request is kept: user, gateway, method and parameters all take
    /// part, so that no user ever sees another's reply. Empty: a reply is not kept.
    virtual QString GetCacheKey() const = 0;
    /// Parameters that distinguish kept replies beyond the key itself; empty by default.
    virtual QString GetCTParam() const = 0;
    /// The code that a reply must carry to be kept; empty: the response decides alone.
    virtual QString GetSuccessParam() const = 0;

protected:
    IRequestCacheMethod() = default;
    Q_DISABLE_COPY(IRequestCacheMethod)
};
