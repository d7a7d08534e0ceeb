#pragma once

#include "http/HttpExport.h"

#include <QtCore/QSharedPointer>

#include <functional>

class IHttpRequest;
class IHttpResponse;

/// Sends requests. The client provides one, usually an `HttpManager`, through `Provided<IHttpManager>`. GUI
/// thread.
class TL_HTTP_EXPORT IHttpManager
{
public:
    virtual ~IHttpManager();

    /// Sends `request` and returns at once. When `response` holds the outcome, `finished` runs on the GUI
    /// thread, once and never inside this call; request and response live until it returns. Neither may be
    /// null; `finished` may be empty, may send again and may delete the manager.
    ///
    /// The client drops the calls still in flight before it unloads the modules, and lets go of request and
    /// response: `finished` then never runs. It gives writes (`HttpCallKind`) up to 2 s to finish first.
    ///
    /// `timeout` [ms] counts for the whole call, attempts and the pauses between them included; 0 or less
    /// means 20000. `attempts`, 1 to 5, is how often the call is tried at most: while the response's
    /// `ShouldRetry` says so and there is time left for the pause before the next attempt.
    virtual void Send(const QSharedPointer<IHttpRequest>& request,
                      const QSharedPointer<IHttpResponse>& response, std::function<void()> finished,
                      int timeout, int attempts) = 0;

    /// The provided manager, or one whose calls all fail while none is provided. Never null.
    static IHttpManager* Instance();

    static IHttpManager* Provided() noexcept;
    static void Provide(IHttpManager* manager) noexcept;

protected:
    IHttpManager() = default;
    Q_DISABLE_COPY(IHttpManager)
};
