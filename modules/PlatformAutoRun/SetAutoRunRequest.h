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

    /// The configuration to write, shared. It becomes text when the request is sent, again at each attempt.
    void SetCollection(const QSharedPointer<AutoRunCollectionEntity>& collection);

    QString GetDsmMethod() const override;
    /// {"baseInfo":{base information},"workstationSetResult":{the configuration}}; only the first member
    /// without a configuration. The service expects another name for it than in the read.
    QByteArray GetBusinessParam() const override;

private:
    Q_DISABLE_COPY(SetAutoRunRequest)

    QSharedPointer<AutoRunCollectionEntity> m_collection;
};
