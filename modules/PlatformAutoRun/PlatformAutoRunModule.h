#pragma once

#include "frame-core/IBusinessModule.h"

#include <QtCore/QObject>

/// The root object of the plug-in. Offers the life-cycle hooks, the settings page and the route interceptor.
/// GUI thread.
class PlatformAutoRunModule final : public QObject, public IBusinessModule
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID IBusinessModule_iid FILE "PlatformAutoRun.json")
    Q_INTERFACES(IBusinessModule)

public:
    PlatformAutoRunModule();
    /// Does not delete the hook objects: by contract, `UninitModule` has come first.
    ~PlatformAutoRunModule() override;

    void InitModule() override;
    void UninitModule() override;
    ILifeCycle* GetLifeCycle() override;
    IRouteInterceptor* GetRouteInterceptor() override;
    ISysSettingFactory* GetSysSettingFactory() override;

private:
    Q_DISABLE_COPY(PlatformAutoRunModule)

    // Owned from InitModule to UninitModule, null otherwise.
    ILifeCycle* m_lifeCycle = nullptr;
    ISysSettingFactory* m_sysSettingFactory = nullptr;
    IRouteInterceptor* m_routeInterceptor = nullptr;
};
