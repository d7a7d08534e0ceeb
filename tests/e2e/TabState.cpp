#include "TabState.h"

bool TabState::Apply(const QJsonObject& event)
{
    const QStringList before = m_routerUrls;
    const QString name = event.value(QStringLiteral("event")).toString();
    const QString routerUrl = event.value(QStringLiteral("routerUrl")).toString();
    const int place = event.value(QStringLiteral("index")).toInt() - 1; // home is not counted
    const bool known = place >= 0 && place < m_routerUrls.size();
    if (name == QLatin1String("start")) {
        m_routerUrls.clear();
    } else if (name == QLatin1String("tab.opened") && place >= 0) {
        m_routerUrls.insert(place, routerUrl);
    } else if (name == QLatin1String("tab.closed") && known) {
        m_routerUrls.removeAt(place);
    } else if (name == QLatin1String("tab.changed") && known) {
        m_routerUrls[place] = routerUrl;
    } else if (name == QLatin1String("tab.moved")) {
        m_routerUrls.move(event.value(QStringLiteral("from")).toInt() - 1,
                          event.value(QStringLiteral("to")).toInt() - 1);
    }
    return m_routerUrls != before;
}

QStringList TabState::After(const QVector<QJsonObject>& events)
{
    TabState state;
    for (const QJsonObject& event : events) {
        state.Apply(event);
    }
    return state.GetRouterUrls();
}
