#pragma once

#include "frame-data/FrameDataExport.h"

#include <QtCore/QString>
#include <QtCore/QUrl>

/// Rules for addresses. Pure functions, any thread.
class TL_FRAME_DATA_EXPORT TLUrlUtils final
{
public:
    TLUrlUtils() = delete;

    /// The address as a URL that the client may open: http or https with a host, no control characters
    /// or back-slashes, no user info. An empty QUrl when it may not be opened.
    static QUrl ToWebUrl(const QString& address);
};
