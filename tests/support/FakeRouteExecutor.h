#pragma once

#include "base/IRouteExecutor.h"

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// A router that knows every URL, writes down what it is asked to do, and has the objects that the test
/// gave it.
class FakeRouteExecutor final : public IRouteExecutor
{
public:
    FakeRouteExecutor();
    ~FakeRouteExecutor() override;

    /// Not owned.
    void SetRouteObject(const QString& url, QObject* object);
    /// The executed URLs with their parameters, in call order.
    QStringList GetExecuted() const;

    bool ExecuteRoute(const VXRouterProtocol& route) override;
    QObject* GetRouteObject(const VXRouterProtocol& route) override;

private:
    QHash<QString, QObject*> m_objects;
    QStringList m_executed;
};
