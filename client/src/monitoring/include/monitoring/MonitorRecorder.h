#pragma once

#include "core/IMonitorSystem.h"

#include <QtCore/QObject>
#include <QtCore/QString>

/// Records the user's actions in the profile, one line of JSON per event with time, id, page and parameters.
/// Uses at most two files: when the first reaches its limit, it replaces the second.
class MonitorRecorder final : public QObject, public IMonitorSystem
{
    Q_OBJECT

public:
    /// Creates `folder` with the first event. `limit` [bytes] applies to the first file.
    explicit MonitorRecorder(const QString& folder, qint64 limit = qint64(1024) * 1024,
                             QObject* parent = nullptr);

    void ReportEvent(const QString& eventId, const QString& pageId, const QStringList& parameters) override;

    /// Deletes all recorded events.
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
