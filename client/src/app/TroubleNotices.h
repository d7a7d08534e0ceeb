#pragma once

#include <QtCore/QObject>

class GatewayWatch;
class NoticeBoard;
struct HttpCallReport;

/// Shows trouble with the gateway and the settings store in bars. GUI thread.
class TroubleNotices final : public QObject
{
    Q_OBJECT

public:
    /// Owns neither of them.
    TroubleNotices(NoticeBoard* notices, GatewayWatch* watch, QObject* parent = nullptr);

    /// Call when a call to the gateway ended. A failed read of the start list shows a bar.
    void HandleReport(const HttpCallReport& report);
    /// Call when the session could not be saved.
    void ShowSaveFailed();
    void ShowStoreSetAside(const QString& setAsideFile, const QString& reason);
    /// Call for each stored value that is found damaged.
    void HandleDamagedValue();
    void ShowStoreFailed(const QString& reason);

private:
    void ShowLost(const QString& failure, bool fromCache);

    NoticeBoard* m_notices;
    GatewayWatch* m_watch;
    int m_damagedValues = 0;
};
