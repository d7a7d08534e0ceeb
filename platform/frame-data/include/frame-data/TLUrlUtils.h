#pragma once

#include "frame-data/FrameDataExport.h"

#include <QtCore/QString>
#include <QtCore/QUrl>

/// Rules for addresses. Pure functions, any thread.
class TL_FRAME_DATA_EXPORT TLUrlUtils final
{
public:
    TLUrlUtils() = delete;

    /// The address as a URL that the client may open: http or https with a host, at most 8,192 characters,
    /// without user info, back-slashes, spaces, control characters and characters that turn the direction
    /// of writing. Surrounding white space does not count. An empty QUrl when it may not be opened; a text
    /// without scheme is refused as well, since only the caller can know what it means.
    static QUrl ToWebUrl(const QString& address);
};
