#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QStringList>
#include <QtCore/QVector>

/// The tabs of the client, told by its trace: router URLs in the order of the window, without the home tab.
class TabState final
{
public:
    /// Takes the next event of the trace; whether it changed the tabs.
    bool Take(const QJsonObject& event);

    const QStringList& GetRouterUrls() const noexcept { return m_routerUrls; }

    static QStringList After(const QVector<QJsonObject>& events);

private:
    QStringList m_routerUrls;
};
