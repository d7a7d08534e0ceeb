#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

/// What was typed into the address bar, as an address. Pure functions.
class AddressInput final
{
public:
    AddressInput() = delete;

    /// A host without a scheme is given https. Empty when it is nothing that the client opens.
    static QUrl ToUrl(const QString& typed);

    /// The address as it is shown to the user: without user info. An internationalised host is readable where
    /// its letters cannot be taken for others; such as in Cyrillic or Greek it stands in its ASCII form (RFC
    /// 5890).
    static QString ToDisplay(const QUrl& url);
    /// The same for the host alone; empty when there is none.
    static QString ToDisplayHost(const QUrl& url);
};
