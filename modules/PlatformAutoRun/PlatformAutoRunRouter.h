#pragma once

#include "frame-core/IRouteInterceptor.h"

#include <QtCore/QObject>

/// Handles the router URLs by which the rest of the client tells the module that the open tabs changed, that
/// it must drop their record, or that a restart is coming. The module object makes it. GUI thread.
class PlatformAutoRunRouter final : public QObject, public IRouteInterceptor
{
    Q_OBJECT

public:
    PlatformAutoRunRouter();
    ~PlatformAutoRunRouter() override;

    /// Acts at once. True for each of the three URLs, whatever the result; does nothing for any other URL.
    bool InterceptRoute(const VXRouterProtocol& route) override;
    QStringList GetRouteUrls() override;

private:
    Q_DISABLE_COPY(PlatformAutoRunRouter)
};
