#pragma once

#include "frame-core/IRouteInterceptor.h"

#include <QtCore/QObject>

/// The router URLs by which the rest of the client tells the module that the open tabs changed, that their
/// record is to be dropped, or that a restart is coming. Made by the module object. GUI thread.
class PlatformAutoRunRouter final : public QObject, public IRouteInterceptor
{
    Q_OBJECT

public:
    PlatformAutoRunRouter();
    ~PlatformAutoRunRouter() override;

    /// Acts at once. True for each of the three URLs, whatever came of it; for any other URL nothing
    /// happens.
    bool InterceptRoute(const VXRouterProtocol& route) override;
    QStringList GetRouteUrls() override;

private:
    Q_DISABLE_COPY(PlatformAutoRunRouter)
};
