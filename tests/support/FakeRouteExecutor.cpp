#include "FakeRouteExecutor.h"

#include "base/VXRouterProtocol.h"

FakeRouteExecutor::FakeRouteExecutor() = default;

FakeRouteExecutor::~FakeRouteExecutor() = default;

void FakeRouteExecutor::SetRouteObject(const QString& url, QObject* object)
{
    m_objects.insert(url, object);
}

QStringList FakeRouteExecutor::GetExecuted() const
{
    return m_executed;
}

bool FakeRouteExecutor::ExecuteRoute(const VXRouterProtocol& route)
{
    m_executed.append(route.GetUrl());
    return true;
}

QObject* FakeRouteExecutor::GetRouteObject(const VXRouterProtocol& route)
{
    for (auto it = m_objects.cbegin(); it != m_objects.cend(); ++it) {
        if (route.Matches(it.key())) {
            return it.value();
        }
    }
    return nullptr;
}
