#include "AutoRunBaseInfo.h"

#include "core/TLGlobalData.h"

#include <QtCore/QJsonObject>

QJsonObject MakeAutoRunBaseInfo()
{
    const TLGlobalData* data = TLGlobalData::Instance();
    return {
        {QStringLiteral("belongType"), data->GetBelongType()},
        {QStringLiteral("pin"), data->GetPin()},
        {QStringLiteral("deviceId"), data->GetUUID()},
        {QStringLiteral("platform"), QStringLiteral("pc-win")},
    };
}
