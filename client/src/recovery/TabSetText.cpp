#include "TabSetText.h"

#include "browser/TabRouterUrls.h"

#include "base/VXRouterProtocol.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <optional>

namespace {

constexpr int FormatVersion = 1;

const QString VersionKey = QStringLiteral("version");
const QString WhenKey = QStringLiteral("when");
const QString CurrentKey = QStringLiteral("current");
const QString CountKey = QStringLiteral("count");
const QString UrlKey = QStringLiteral("url");
const QString TitleKey = QStringLiteral("title");
const QString IconKey = QStringLiteral("icon");
const QString TypeKey = QStringLiteral("type");

void Append(QByteArray& text, const QJsonObject& line)
{
    text += QJsonDocument(line).toJson(QJsonDocument::Compact);
    text += '\n';
}

std::optional<QJsonObject> ParseLine(const QStringRef& line)
{
    const QJsonDocument document = QJsonDocument::fromJson(line.toUtf8());
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

bool OpensTab(const QString& routerUrl)
{
    const VXRouterProtocol route(routerUrl);
    return route.Matches(TabRouterUrls::BrowserOpen) || route.Matches(TabRouterUrls::PluginOpen);
}

bool ReadHead(const QJsonObject& line, TabSet* tabs, int* count)
{
    tabs->when = QDateTime::fromString(line.value(WhenKey).toString(), Qt::ISODateWithMs);
    tabs->current = line.value(CurrentKey).toInt(-1);
    *count = line.value(CountKey).toInt(-1);
    return tabs->when.isValid() && *count >= 0 && line.value(VersionKey).toInt() == FormatVersion;
}

bool ReadTab(const QJsonObject& line, QVector<TabRecord>* tabs)
{
    const TabRecord tab{line.value(UrlKey).toString(), line.value(TitleKey).toString(),
                        line.value(IconKey).toString(), line.value(TypeKey).toInt()};
    if (!OpensTab(tab.routerUrl)) {
        return false;
    }
    tabs->append(tab);
    return true;
}

} // namespace

QString TabSetText::Write(const TabSet& tabs)
{
    if (tabs.tabs.isEmpty()) {
        return QString();
    }
    QByteArray text;
    text.reserve(tabs.tabs.size() * 200);
    Append(text, {{VersionKey, FormatVersion},
                  {WhenKey, tabs.when.toUTC().toString(Qt::ISODateWithMs)},
                  {CurrentKey, tabs.current},
                  {CountKey, tabs.tabs.size()}});
    for (const TabRecord& tab : tabs.tabs) {
        Append(text,
               {{UrlKey, tab.routerUrl}, {TitleKey, tab.title}, {IconKey, tab.iconUrl}, {TypeKey, tab.type}});
    }
    return QString::fromUtf8(text);
}

TabSetText::Reading TabSetText::Read(const QString& text)
{
    Reading reading;
    const QVector<QStringRef> lines = text.splitRef(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (lines.isEmpty()) {
        reading.whole = text.isEmpty();
        return reading;
    }
    const std::optional<QJsonObject> head = ParseLine(lines.constFirst());
    int count = -1;
    reading.whole = head && ReadHead(*head, &reading.tabs, &count);
    // A first line that is no head may be a tab whose head was cut away.
    const int first = head && head->contains(UrlKey) ? 0 : 1;
    for (int i = first; i < lines.size(); ++i) {
        const std::optional<QJsonObject> line = ParseLine(lines.at(i));
        if (!line || !ReadTab(*line, &reading.tabs.tabs)) {
            reading.whole = false;
        }
    }
    if (reading.tabs.tabs.size() != count) {
        reading.whole = false;
        reading.tabs.current = -1; // positions mean nothing any more
    }
    if (reading.tabs.current < -1 || reading.tabs.current >= reading.tabs.tabs.size()) {
        reading.tabs.current = -1;
    }
    return reading;
}
