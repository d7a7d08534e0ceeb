#pragma once

#include "http/HttpExport.h"

#include <QtCore/QByteArray>
#include <QtCore/qglobal.h>

/// What a response says about being kept and being served from what was kept.
class TL_HTTP_EXPORT IResponseCacheMethod
{
public:
    virtual ~IResponseCacheMethod();

    /// Whether the reply is kept and a kept one may serve. False by default.
    virtual bool IsAutoCache() const = 0;
    /// Whether the reply just received is worth keeping: it was a success.
    virtual bool CanSaveToCache() const = 0;
    /// Whether a kept reply shall serve instead of the outcome at hand: the network failed or the gateway
    /// answered with a server error. Never for a refusal.
    virtual bool NeedReadFromCache() const = 0;
    /// The bytes to keep.
    virtual QByteArray GetCacheData() const = 0;
    /// Takes kept bytes as the reply. The response then says that it was served from what was kept.
    virtual void SetCacheData(const QByteArray& data) = 0;

protected:
    IResponseCacheMethod() = default;
    Q_DISABLE_COPY(IResponseCacheMethod)
};
