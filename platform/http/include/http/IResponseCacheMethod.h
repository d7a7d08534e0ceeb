#pragma once

#include "http/HttpExport.h"

#include <QtCore/QByteArray>
#include <QtCore/qglobal.h>

/// What a response says about keeping its reply and about a kept reply that serves in its place.
class TL_HTTP_EXPORT IResponseCacheMethod
{
public:
    virtual ~IResponseCacheMethod();

    /// Whether the reply is kept and a kept one may serve. It also makes the call a read (`HttpCallKind`).
    /// Must not change while the call is in flight.
    virtual bool IsAutoCache() const = 0;
    /// Whether the reply just received is to be kept: it was a success.
    virtual bool CanSaveToCache() const = 0;
    /// Whether a kept reply is to serve in place of the current outcome: the network failed, or the gateway
    /// answered with a server error. Never for a refusal.
    virtual bool NeedReadFromCache() const = 0;
    /// The bytes to keep.
    virtual QByteArray GetCacheData() const = 0;
    /// Takes kept bytes as the reply. The response then says that a kept reply served.
    virtual void SetCacheData(const QByteArray& data) = 0;

protected:
    IResponseCacheMethod() = default;
    Q_DISABLE_COPY(IResponseCacheMethod)
};
