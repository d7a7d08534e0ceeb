#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// Appends one line of JSON per event to a file, unbuffered, so that another program can follow what the
/// client does. GUI thread.
class TraceWriter final
{
public:
    /// Writes nothing until `Open`. Events count their time from here.
    TraceWriter();

    /// Appends to `file`. False when it cannot be opened, with the system's reason in `problem`.
    bool Open(const QString& file, QString* problem);
    bool IsOpen() const { return m_file.isOpen(); }

    /// Writes this text as "***" wherever it occurs: a password, token or app secret. Ignores an empty text.
    void AddSecret(const QString& secret);

    /// Writes `fields`, the event's name and `t`, the time since the start [ms].
    void Write(const QString& event, QJsonObject fields);

private:
    QString Clean(const QString& text) const;
    QJsonValue Clean(const QJsonValue& value) const;

    QFile m_file;
    QElapsedTimer m_sinceStart;
    QStringList m_secrets;
};
