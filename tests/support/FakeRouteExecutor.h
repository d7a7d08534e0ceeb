#pragma once

#include "base/IRouteExecutor.h"

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// A router that accepts and records every URL, and has the objects that the test gives it.
class FakeRouteExecutor final : public IRouteExecutor
{
public:
    FakeRouteExecutor();
    ~FakeRouteExecutor() override;

    /// Does not own the object.
    void SetRouteObject(const QString& url, QObject* object);
    /// The executed URLs with their parameters, in call order.
    QStringList GetExecuted() const;

    bool ExecuteRoute(const VXRouterProtocol& route) override;
    QObject* GetRouteObject(const VXRouterProtocol& route) override;

private:
    QHash<QString, QObject*> m_objects;
    QStringList m_executed;
};
