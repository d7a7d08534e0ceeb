#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

/// What was typed into the address bar, as an address. Pure functions.
class AddressInput final
{
public:
    AddressInput() = delete;

    /// Adds https to a host without a scheme. Empty if the client does not open such an address.
    static QUrl ToUrl(const QString& typed);

    /// The address as the user sees it, without user info. An internationalised host is readable if its
    /// letters cannot be mistaken for others; a host in Cyrillic or Greek, say, is shown in its ASCII form
    /// (RFC 5890).
    static QString ToDisplay(const QUrl& url);
    /// The same for the host alone; empty when there is none.
    static QString ToDisplayHost(const QUrl& url);
};
