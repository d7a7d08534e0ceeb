#pragma once

#include "http-module/IHttpRequestDsm.h"

/// Reads the signed-in user's configuration. Its reply is a
/// `HttpResponseObjectDsm<AutoRunCollectionEntity>`.
class GetAutoRunRequest final : public IHttpRequestDsm
{
    Q_OBJECT

public:
    explicit GetAutoRunRequest(QObject* parent = nullptr);

    QString GetDsmMethod() const override;
    /// {"param":{base information}}
    QByteArray GetBusinessParam() const override;

private:
    Q_DISABLE_COPY(GetAutoRunRequest)
};
