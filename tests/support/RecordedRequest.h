#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMap>

/// A request to a `ScriptedHttpServer`.
struct RecordedRequest
{
    QByteArray method;
    QByteArray target;                    ///< path and query as sent
    QMap<QByteArray, QByteArray> headers; ///< names in lower case
    QByteArray body;
    qint64 arrival = 0; ///< [ms] since the server was made
};
