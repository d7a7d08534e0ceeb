#pragma once

#include "recovery/TabSet.h"

#include "base/VXRouterProtocol.h"
#include "tab-container/TabType.h"

/// Example tabs, for tests that do not care which.
namespace TabSetExamples {

inline TabRecord MakePage(const QString& name)
{
    VXRouterProtocol route(QStringLiteral("tl://browser/open"));
    route.With(QStringLiteral("url"), QStringLiteral("https://%1.example/").arg(name));
    return {route.GetUrl(), QStringLiteral("Title of ") + name,
            QStringLiteral("https://%1.example/icon.png").arg(name), TabType::WebPage};
}

inline TabRecord MakeApp(const QString& code)
{
    VXRouterProtocol route(QStringLiteral("tl://plugin/open"));
    route.With(QStringLiteral("code"), code);
    return {route.GetUrl(), code.toUpper(), QString(), TabType::WebApp};
}

inline QDateTime GetMoment()
{
    return QDateTime(QDate(2026, 11, 21), QTime(8, 30, 15, 250), Qt::UTC);
}

/// Pages named "a", "b", …, or "0", "1", … beyond the alphabet.
inline TabSet MakeTabs(int count, int current = -1)
{
    TabSet tabs;
    tabs.when = GetMoment();
    tabs.current = current;
    for (int i = 0; i < count; ++i) {
        tabs.tabs.append(MakePage(count <= 26 ? QString(QChar('a' + i)) : QString::number(i)));
    }
    return tabs;
}

} // namespace TabSetExamples
