#include "trace/TraceWriter.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QUrl>

#include <algorithm>

TraceWriter::TraceWriter()
{
    m_sinceStart.start();
}

bool TraceWriter::Open(const QString& file, QString* problem)
{
    m_file.setFileName(file);
    // Unbuffered: a line is in the file when Write returns, even if the process is killed right after.
    if (m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) {
        return true;
    }
    *problem = m_file.errorString();
    return false;
}

void TraceWriter::AddSecret(const QString& secret)
{
    if (secret.isEmpty()) {
        return;
    }
    const QString encoded = QString::fromLatin1(QUrl::toPercentEncoding(secret));
    for (const QString& form : {secret, encoded}) {
        if (!m_secrets.contains(form)) {
            m_secrets.append(form);
        }
    }
    // Longest first: replacing a secret that is part of another would leave the rest of the longer one.
    std::sort(m_secrets.begin(), m_secrets.end(),
              [](const QString& a, const QString& b) { return a.size() > b.size(); });
}

void TraceWriter::Write(const QString& event, QJsonObject fields)
{
    if (!m_file.isOpen()) {
        return;
    }
    fields = Clean(QJsonValue(fields)).toObject();
    fields.insert(QStringLiteral("t"), m_sinceStart.elapsed());
    fields.insert(QStringLiteral("event"), event);
    m_file.write(QJsonDocument(fields).toJson(QJsonDocument::Compact) + '\n');
}

QString TraceWriter::Clean(const QString& text) const
{
    QString clean = text;
    for (const QString& secret : m_secrets) {
        clean.replace(secret, QLatin1String("***"));
    }
    return clean;
}

QJsonValue TraceWriter::Clean(const QJsonValue& value) const
{
    if (value.isString()) {
        return Clean(value.toString());
    }
    if (value.isArray()) {
        QJsonArray clean;
        const QJsonArray array = value.toArray();
        for (const QJsonValue& element : array) {
            clean.append(Clean(element));
        }
        return clean;
    }
    if (value.isObject()) {
        QJsonObject clean;
        const QJsonObject object = value.toObject();
        for (auto member = object.begin(); member != object.end(); ++member) {
            clean.insert(member.key(), Clean(member.value()));
        }
        return clean;
    }
    return value;
}
