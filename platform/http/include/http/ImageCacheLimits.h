#pragma once

#include <QtCore/QtGlobal>

/// What a `VXImageCache` accepts and keeps.
struct ImageCacheLimits
{
    qint64 bodySize = qint64(2) * 1024 * 1024; ///< of a download [bytes]
    qint64 pixels = qint64(4) * 1024 * 1024;   ///< of a picture, read from its header before it is decoded
    int edge = 512;                            ///< larger pictures are scaled down to it [px]

    int downloads = 6;                       ///< at the same time
    int timeout = 15000;                     ///< of a download as a whole [ms]
    qint64 failureRest = 60000;              ///< how long a failed address is left alone [ms]
    qint64 freshness = qint64(24) * 3600000; ///< how long a picture counts as up to date [ms]

    int memoryCount = 300;
    qint64 memorySize = qint64(16) * 1024 * 1024; ///< [bytes]
    int diskCount = 1000;
    qint64 diskSize = qint64(64) * 1024 * 1024; ///< [bytes]
};
