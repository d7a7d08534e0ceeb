#pragma once

#include "http/HttpExport.h"
#include "http/IResponseCacheMethod.h"

/// The side of an `IHttpResponseBase` that keeps replies. It is a class of its own because some compilers
/// would give overrides in the response itself a slot among the response's operations, and derived classes
/// rely on those slots.
class TL_HTTP_EXPORT ResponseCacheSide : public IResponseCacheMethod
{
public:
    ~ResponseCacheSide() override;

    bool IsAutoCache() const override;
    bool CanSaveToCache() const override;
    bool NeedReadFromCache() const override;
    QByteArray GetCacheData() const override;
    /// Leaves the outcome as it was when the bytes are not a successful reply.
    void SetCacheData(const QByteArray& data) override;

private:
    friend class IHttpResponseBase; // the one class that may derive
    ResponseCacheSide() = default;
};
