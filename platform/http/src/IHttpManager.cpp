#include "http/IHttpManager.h"

#include "http/HttpError.h"
#include "http/IHttpRequest.h"
#include "http/IHttpResponse.h"

#include <QtCore/QCoreApplication>

#include <utility>

namespace {

// Stands in while nothing is provided.
class NoHttpManager final : public IHttpManager
{
public:
    void Send(const QSharedPointer<IHttpRequest>& request, const QSharedPointer<IHttpResponse>& response,
              std::function<void()> finished, int /*timeout*/, int /*attempts*/) override
    {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [request, response, finished = std::move(finished)] {
                request->DoReset();
                response->DoReset();
                response->SetNetworkError(
                    static_cast<int>(HttpError::InvalidAddress),
                    QCoreApplication::translate("IHttpManager", "The client is not connected to a gateway."));
                if (finished) {
                    finished();
                }
            },
            Qt::QueuedConnection);
    }
};

IHttpManager* provided = nullptr;

} // namespace

IHttpManager::~IHttpManager() = default;

IHttpManager* IHttpManager::Instance()
{
    static NoHttpManager none;
    return provided ? provided : &none;
}

IHttpManager* IHttpManager::Provided() noexcept
{
    return provided;
}

void IHttpManager::Provide(IHttpManager* manager) noexcept
{
    provided = manager;
}
