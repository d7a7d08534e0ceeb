#include "FakeModule.h"

#include <stdexcept>

FakeModule::FakeModule(const QString& key, QStringList* calls) : m_key(key), m_calls(calls) {}

BeforeCloseResult FakeModule::BeforeClose()
{
    Note("BeforeClose");
    return beforeClose;
}

bool FakeModule::InterceptRoute(const VXRouterProtocol&)
{
    Note("InterceptRoute");
    return intercepts;
}

bool FakeModule::HasRouteValue(const VXRouterProtocol&)
{
    return object != nullptr;
}

QVariant FakeModule::GetRouteValue(const VXRouterProtocol&)
{
    Note("GetRouteValue");
    return QVariant::fromValue(object);
}

QStringList FakeModule::GetRouteUrls()
{
    Note("GetRouteUrls");
    return urls;
}

void FakeModule::Note(const char* hook)
{
    m_calls->append(m_key + QLatin1Char(' ') + QLatin1String(hook));
    if (during) {
        during();
    }
    if (throwsIn == QLatin1String(hook)) {
        throw std::runtime_error("a fault in the module");
    }
}
