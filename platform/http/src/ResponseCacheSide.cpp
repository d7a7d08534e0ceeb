#include "http/ResponseCacheSide.h"

#include "http/IHttpResponseBase.h"

#include <utility>

ResponseCacheSide::~ResponseCacheSide() = default;

bool ResponseCacheSide::IsAutoCache() const
{
    return static_cast<const IHttpResponseBase*>(this)->m_autoCache;
}

bool ResponseCacheSide::CanSaveToCache() const
{
    const auto* response = static_cast<const IHttpResponseBase*>(this);
    return response->IsSuccess() && !response->IsFromCache() && !response->m_outcome.data.isEmpty();
}

bool ResponseCacheSide::NeedReadFromCache() const
{
    return static_cast<const IHttpResponseBase*>(this)->m_outcome.serverError;
}

QByteArray ResponseCacheSide::GetCacheData() const
{
    return static_cast<const IHttpResponseBase*>(this)->m_outcome.data;
}

void ResponseCacheSide::SetCacheData(const QByteArray& data)
{
    auto* response = static_cast<IHttpResponseBase*>(this);
    IHttpResponseBase::Outcome before = std::exchange(response->m_outcome, IHttpResponseBase::Outcome());
    response->m_outcome.fromCache = true;
    response->SetData(data);
    if (!response->IsSuccess()) {
        response->m_outcome = std::move(before);
    }
}
