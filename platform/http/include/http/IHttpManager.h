#pragma once

#include "http/HttpExport.h"

#include <QtCore/QSharedPointer>

#include <functional>

class IHttpRequest;
class IHttpResponse;

/// Sends requests. The client provides one (usually an `HttpManager`) through `Provided<IHttpManager>`.
/// GUI thread.
class TL_HTTP_EXPORT IHttpManager
{
public:
    virtual ~IHttpManager();

    /// Sends `request` and returns at once. When `response` holds the outcome, `finished` runs on the GUI
    /// thread, exactly once and never inside this call; request and response are kept until it returned.
    /// Neither may be null; `finished` may be empty, may send again and may delete the manager.
    /// `timeout` [ms] counts for the whole call, attempts and the pauses between them included; 0 or
    /// less: 20000.
    /// `attempts` is how often the call is tried at the most, 1 to 5, while the response's `ShouldRetry`
    /// says so and there is time left for the pause before the next one.
    virtual void Send(const QSharedPointer<IHttpRequest>& request,
                      const QSharedPointer<IHttpResponse>& response, std::function<void()> finished,
                      int timeout, int attempts) = 0;

    /// What is provided now; while nothing is, an object that lets every call fail. Never null.
    static IHttpManager* Instance();

    static IHttpManager* Provided() noexcept;
    static void Provide(IHttpManager* manager) noexcept;

protected:
    IHttpManager() = default;
    Q_DISABLE_COPY(IHttpManager)
};
