#pragma once

#include <QtCore/QObject>

class GatewayWatch;
class NoticeBoard;
struct HttpCallReport;

/// Says in bars what goes wrong around the gateway and the settings store. GUI thread.
class TroubleNotices final : public QObject
{
    Q_OBJECT

public:
    /// Neither is owned.
    TroubleNotices(NoticeBoard* notices, GatewayWatch* watch, QObject* parent = nullptr);

    /// A call ended; one that reads what opens at the start is of interest to the user when it fails.
    void HandleReport(const HttpCallReport& report);
    /// The session was to be kept and could not be.
    void ShowSaveFailed();
    void ShowStoreSetAside(const QString& setAsideFile, const QString& reason);
    /// One more stored value was found damaged.
    void HandleDamagedValue();
    void ShowStoreFailed(const QString& reason);

private:
    void ShowLost(const QString& failure, bool fromCache);

    NoticeBoard* m_notices;
    GatewayWatch* m_watch;
    int m_damagedValues = 0;
};
