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

    /// The address as it is shown to the user: without user info, an internationalised host readable.
    static QString ToDisplay(const QUrl& url);
};
