#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QStringList>
#include <QtCore/QVector>

/// The client's tabs according to its trace: router URLs in the order of the window, without the home tab.
class TabState final
{
public:
    /// Applies the next event of the trace; returns whether it changed the tabs.
    bool Apply(const QJsonObject& event);

    const QStringList& GetRouterUrls() const noexcept { return m_routerUrls; }

    static QStringList After(const QVector<QJsonObject>& events);

private:
    QStringList m_routerUrls;
};
