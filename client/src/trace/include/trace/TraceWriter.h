#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// Appends one line of JSON per event to a file, each written out at once, so that whoever watches the
/// client from outside sees what it does. GUI thread.
class TraceWriter final
{
public:
    /// Writes nowhere until a file is opened. The time of the events counts from here.
    TraceWriter();

    /// Appends to `file`. False, with the system's reason in `problem`, when it cannot be opened.
    bool Open(const QString& file, QString* problem);
    bool IsOpen() const { return m_file.isOpen(); }

    /// A text that no line may ever show, whatever it comes with: a password, token or app secret. It is
    /// written as "***". An empty text is ignored.
    void AddSecret(const QString& secret);

    /// Writes `fields` with the name of the event and `t`, the time since the start [ms].
    void Write(const QString& event, QJsonObject fields);

private:
    QString Clean(const QString& text) const;
    QJsonValue Clean(const QJsonValue& value) const;

    QFile m_file;
    QElapsedTimer m_sinceStart;
    QStringList m_secrets;
};
