#include "monitoring/MonitorRecorder.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(logMonitor, "tl.client.monitor")

} // namespace

MonitorRecorder::MonitorRecorder(const QString& folder, qint64 limit, QObject* parent)
    : QObject(parent), m_folder(folder), m_limit(limit)
{}

void MonitorRecorder::ReportEvent(const QString& eventId, const QString& pageId,
                                  const QStringList& parameters)
{
    const QJsonObject record{
        {QStringLiteral("time"), QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs)},
        {QStringLiteral("id"), eventId},
        {QStringLiteral("page"), pageId},
        {QStringLiteral("parameters"), QJsonArray::fromStringList(parameters)}};
    const QByteArray line = QJsonDocument(record).toJson(QJsonDocument::Compact) + '\n';

    QDir().mkpath(m_folder);
    const QFileInfo info(GetFile());
    if (info.exists() && info.size() > 0 && info.size() + line.size() > m_limit) {
        QFile::remove(GetOlderFile());
        QFile::rename(GetFile(), GetOlderFile());
    }
    QFile file(GetFile());
    const bool written = file.open(QIODevice::WriteOnly | QIODevice::Append) &&
                         file.write(line) == line.size() && file.flush();
    if (!written && !m_failed) {
        qCWarning(logMonitor).noquote()
            << "cannot record events in" << GetFile() << ":" << file.errorString();
    }
    m_failed = !written;
    Q_EMIT SigReported(eventId, pageId, parameters);
}

void MonitorRecorder::Clear()
{
    QFile::remove(GetOlderFile());
    QFile::remove(GetFile());
}

QString MonitorRecorder::GetFile() const
{
    return QDir(m_folder).filePath(QStringLiteral("events.jsonl"));
}

QString MonitorRecorder::GetOlderFile() const
{
    return QDir(m_folder).filePath(QStringLiteral("events.1.jsonl"));
}
