#pragma once

#include "http/HttpExport.h"

#include <QtCore/QSharedPointer>
#include <QtCore/qglobal.h>

class IHttpRequest;
class IHttpResponse;

/// Hears of finished calls through the `HttpNotifyManager`. GUI thread.
class TL_HTTP_EXPORT HttpObserverBase
{
public:
    /// Leaves the hub, also in the middle of a delivery.
    virtual ~HttpObserverBase();

    /// A call of kind `id` finished. Either pointer may be null, if the sender has none.
    virtual void OnHttpNotify(int id, QSharedPointer<IHttpRequest> request,
                              QSharedPointer<IHttpResponse> response) = 0;

protected:
    HttpObserverBase() = default;
    Q_DISABLE_COPY(HttpObserverBase)
};
