#pragma once

#include "http-module/IHttpRequestDsm.h"

#include <QtCore/QSharedPointer>

class AutoRunCollectionEntity;

/// Writes the signed-in user's configuration as a whole. Its reply is a `HttpResponseBasicDsm<bool>`.
class SetAutoRunRequest final : public IHttpRequestDsm
{
    Q_OBJECT

public:
    SetAutoRunRequest();
    ~SetAutoRunRequest() override;

    /// What to write, shared. It becomes text when the request is sent, at each attempt anew.
    void SetCollection(const QSharedPointer<AutoRunCollectionEntity>& collection);

    QString GetDsmMethod() const override;
    /// {"baseInfo":{who asks},"workstationSetResult":{the configuration}}; without a configuration only
    /// the first member. The first one's name differs from the read's: that is what the service expects.
    QByteArray GetBusinessParam() const override;

private:
    Q_DISABLE_COPY(SetAutoRunRequest)

    QSharedPointer<AutoRunCollectionEntity> m_collection;
};
