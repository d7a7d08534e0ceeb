#include "GetAutoRunRequest.h"

#include "AutoRunBaseInfo.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

GetAutoRunRequest::GetAutoRunRequest(QObject* parent) : IHttpRequestDsm(parent) {}

QString GetAutoRunRequest::GetDsmMethod() const
{
    return QStringLiteral("dsm.tl.pc.auto.run.get");
}

QByteArray GetAutoRunRequest::GetBusinessParam() const
{
    const QJsonObject business{{QStringLiteral("param"), MakeAutoRunBaseInfo()}};
    return QJsonDocument(business).toJson(QJsonDocument::Compact);
}
