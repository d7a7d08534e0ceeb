#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMap>

/// What a `ScriptedHttpServer` was asked.
struct RecordedRequest
{
    QByteArray method;
    QByteArray target;                    ///< path and query as sent
    QMap<QByteArray, QByteArray> headers; ///< names in lower case
    QByteArray body;
    qint64 arrival = 0; ///< [ms] since the server was made
};
