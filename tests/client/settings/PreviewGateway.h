#pragma once

#include "http/IHttpManager.h"

#include <QtCore/QJsonObject>
#include <QtCore/QObject>
#include <QtCore/QString>

/// Answers what the modules ask for from a made-up configuration, and stores what they write.
class PreviewGateway final : public QObject, public IHttpManager
{
    Q_OBJECT

public:
    /// "empty": no entries. "full": all kinds. "many": and no room for another web address. "failed": reads
    /// fail. "stale": and cached replies serve. "loading": nothing is ever answered. "slow": full, and every
    /// write takes its time.
    explicit PreviewGateway(const QString& list);
    ~PreviewGateway() override;

    void Send(const QSharedPointer<IHttpRequest>& request, const QSharedPointer<IHttpResponse>& response,
              std::function<void()> finished, int timeout, int attempts) override;

    QJsonObject GetConfiguration() const { return m_configuration; }

    int failures = 0;   ///< so many writes fail from now on
    int writeDelay = 0; ///< [ms]; 0: the usual one
    int writes = 0;     ///< so far
    bool stale;         ///< cached replies serve because the gateway is out of reach

private:
    QString m_list;
    QJsonObject m_configuration;
};
