#pragma once

#include "http/HttpExport.h"
#include "http/IResponseCacheMethod.h"

/// How an `IHttpResponseBase` is kept and served from what was kept. A class of its own, because some
/// compilers would give overrides in the response itself a place among the response's operations, and
/// what derives from the response counts on theirs.
class TL_HTTP_EXPORT ResponseCacheSide : public IResponseCacheMethod
{
public:
    ~ResponseCacheSide() override;

    bool IsAutoCache() const override;
    bool CanSaveToCache() const override;
    bool NeedReadFromCache() const override;
    QByteArray GetCacheData() const override;
    /// Bytes that make no success leave the outcome as it was before.
    void SetCacheData(const QByteArray& data) override;

private:
    friend class IHttpResponseBase; // the one class that may derive
    ResponseCacheSide() = default;
};
