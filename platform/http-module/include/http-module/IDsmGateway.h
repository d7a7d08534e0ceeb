#pragma once

#include "http-module/DsmGatewayConfig.h"
#include "http-module/HttpModuleExport.h"

#include <QtCore/QDateTime>
#include <QtCore/qglobal.h>

/// The client's view of the gateway: its configuration and the clock. Provided through
/// `Provided<IDsmGateway>`. GUI thread.
class TL_HTTP_MODULE_EXPORT IDsmGateway
{
public:
    virtual ~IDsmGateway();

    /// Asked for at every attempt, so that a change takes effect at once.
    virtual DsmGatewayConfig GetConfig() const = 0;
    /// The time for the time stamp; the system's clock by default.
    virtual QDateTime GetCurrentTime() const;

    /// The provided object, or one with an empty configuration while none is provided. Never null.
    static IDsmGateway* Instance();

    static IDsmGateway* Provided() noexcept;
    static void Provide(IDsmGateway* gateway) noexcept;

protected:
    IDsmGateway() = default;
    Q_DISABLE_COPY(IDsmGateway)
};
