#pragma once

#include "frame-data/FrameDataExport.h"

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

/// Rules for addresses. Pure functions over the domains that the client has set.
class TL_FRAME_DATA_EXPORT TLUrlUtils final
{
public:
    TLUrlUtils() = delete;

    /// The address as a URL that the client may open: http or https with a host, at most 8,192 characters,
    /// without user info, back-slashes, spaces, control characters and characters that turn the direction
    /// of writing. Surrounding white space does not count. An empty QUrl when it may not be opened; a text
    /// without scheme is refused as well, since only the caller can know what it means.
    /// Any thread.
    static QUrl ToWebUrl(const QString& address);

    /// Whether `ToWebUrl` takes the address and its host is one of the domains or a subdomain of one. The
    /// host has to be written as it is, in letters or in punycode: what only becomes one of the domains when
    /// it is normalised (full-width letters and dots, percent signs) is refused, and so are control
    /// characters around the address. White space around it included, it has at most 2,048 code points: no
    /// longer one can be stored. GUI thread.
    static bool IsVXUrl(const QString& address);

    /// The domains of the company, in letters or in punycode; what is no domain is left out. None until they
    /// are set, so that `IsVXUrl` refuses all. GUI thread.
    static void SetVXDomains(const QStringList& domains);
    /// As they are compared: in punycode and lower case.
    static QStringList GetVXDomains();
};
