#include "PlatformAutoRunModule.h"

#include "PlatformAutoRunLifeCycle.h"
#include "PlatformAutoRunRouter.h"
#include "PlatformAutoRunSettingFactory.h"

#include <new>

PlatformAutoRunModule::PlatformAutoRunModule() = default;

PlatformAutoRunModule::~PlatformAutoRunModule() = default;

void PlatformAutoRunModule::InitModule()
{
    m_lifeCycle = new (std::nothrow) PlatformAutoRunLifeCycle;
    m_sysSettingFactory = new (std::nothrow) PlatformAutoRunSettingFactory;
    m_routeInterceptor = new (std::nothrow) PlatformAutoRunRouter;
}

void PlatformAutoRunModule::UninitModule()
{
    delete m_lifeCycle;
    m_lifeCycle = nullptr;
    delete m_sysSettingFactory;
    m_sysSettingFactory = nullptr;
    delete m_routeInterceptor;
    m_routeInterceptor = nullptr;
}

ILifeCycle* PlatformAutoRunModule::GetLifeCycle()
{
    return m_lifeCycle;
}

IRouteInterceptor* PlatformAutoRunModule::GetRouteInterceptor()
{
    return m_routeInterceptor;
}

ISysSettingFactory* PlatformAutoRunModule::GetSysSettingFactory()
{
    return m_sysSettingFactory;
}
