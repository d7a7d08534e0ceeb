#include "monitoring/MonitorEventFile.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <optional>

namespace {

constexpr qint64 LongestLine = qint64(1024) * 1024; // [bytes]

std::optional<MonitorEvent> Parse(const QByteArray& line)
{
    const QJsonObject record = QJsonDocument::fromJson(line).object();
    MonitorEvent event;
    event.time = QDateTime::fromString(record.value(QLatin1String("time")).toString(), Qt::ISODateWithMs);
    event.id = record.value(QLatin1String("id")).toString();
    event.page = record.value(QLatin1String("page")).toString();
    const QJsonArray parameters = record.value(QLatin1String("parameters")).toArray();
    for (const QJsonValue& parameter : parameters) {
        event.parameters.append(parameter.toString());
    }
    if (event.id.isEmpty() || !event.time.isValid()) {
        return std::nullopt;
    }
    return event;
}

} // namespace

QVector<MonitorEvent> MonitorEventFile::Load(const QStringList& files, int limit)
{
    QVector<MonitorEvent> events;
    for (const QString& name : files) {
        QFile file(name);
        if (!file.open(QIODevice::ReadOnly)) {
            continue;
        }
        while (!file.atEnd()) {
            if (const std::optional<MonitorEvent> event = Parse(file.readLine(LongestLine))) {
                events.append(*event);
            }
        }
    }
    if (events.size() > limit) {
        events.remove(0, events.size() - limit);
    }
    return events;
}
