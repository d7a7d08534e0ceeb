#include "SetAutoRunRequest.h"

#include "AutoRunBaseInfo.h"
#include "AutoRunCollectionEntity.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

SetAutoRunRequest::SetAutoRunRequest() = default;

SetAutoRunRequest::~SetAutoRunRequest() = default;

void SetAutoRunRequest::SetCollection(const QSharedPointer<AutoRunCollectionEntity>& collection)
{
    m_collection = collection;
}

QString SetAutoRunRequest::GetDsmMethod() const
{
    return QStringLiteral("dsm.tl.pc.auto.run.set");
}

QByteArray SetAutoRunRequest::GetBusinessParam() const
{
    QJsonObject business{{QStringLiteral("baseInfo"), MakeAutoRunBaseInfo()}};
    if (m_collection) {
        business.insert(QStringLiteral("workstationSetResult"), m_collection->ToJsonObject());
    }
    return QJsonDocument(business).toJson(QJsonDocument::Compact);
}
