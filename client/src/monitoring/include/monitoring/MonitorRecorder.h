#pragma once

#include "core/IMonitorSystem.h"

#include <QtCore/QObject>
#include <QtCore/QString>

/// Keeps what is reported about the user's actions in the profile, one line of JSON per event with time,
/// id, page and parameters. At most two files: when the first reaches its limit it becomes the second,
/// whose content goes.
class MonitorRecorder final : public QObject, public IMonitorSystem
{
    Q_OBJECT

public:
    /// `folder` is made with the first event. `limit` [bytes] is that of the first file.
    explicit MonitorRecorder(const QString& folder, qint64 limit = qint64(1024) * 1024,
                             QObject* parent = nullptr);

    void ReportEvent(const QString& eventId, const QString& pageId, const QStringList& parameters) override;

    /// Forgets what is kept.
    void Clear();

    QString GetFile() const;
    QString GetOlderFile() const;

Q_SIGNALS:
    void SigReported(const QString& eventId, const QString& pageId, const QStringList& parameters);

private:
    QString m_folder;
    qint64 m_limit;
    bool m_failed = false;
};
