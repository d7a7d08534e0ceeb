#pragma once

#include "frame-data/FrameDataExport.h"

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

/// The rules for addresses, applied to the domains that the client has set.
class TL_FRAME_DATA_EXPORT TLUrlUtils final
{
public:
    TLUrlUtils() = delete;

    /// The address as a URL that the client may open: http or https with a host, at most 8,192 characters,
    /// without user info, back-slashes, spaces, control characters and characters that change the writing
    /// direction. Surrounding white space does not count. An empty QUrl when the client may not open it; also
    /// for a text without scheme, since only the caller knows what it means. Any thread.
    static QUrl ToWebUrl(const QString& address);

    /// Whether `ToWebUrl` accepts the address and its host is one of the domains or a subdomain of one. The
    /// host has to be written as it is, in letters or in punycode: refuses what becomes one of the domains
    /// only when it is normalised (full-width letters and dots, percent signs), and control characters around
    /// the address. Refuses more than 2,048 code points, surrounding white space included: no longer address
    /// can be stored. GUI thread.
    static bool IsVXUrl(const QString& address);

    /// The company's domains, in letters or in punycode; leaves out what is not a domain. Until they are set
    /// there are none, and `IsVXUrl` refuses everything. GUI thread.
    static void SetVXDomains(const QStringList& domains);
    /// The domains in punycode and lower case, as `IsVXUrl` compares them.
    static QStringList GetVXDomains();
};
