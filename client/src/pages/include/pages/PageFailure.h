#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QUrl>

/// Why a page could not be loaded.
struct PageFailure
{
    enum class Kind
    {
        Unknown,
        HostNotFound,
        ConnectionRefused,
        TimedOut,
        Certificate,
        NoNetwork,
        ConnectionLost, ///< the server broke off, or sent something that is not a web page
        TooManyRedirects,
        HttpError, ///< the server answered with an error and no page of its own
        Blocked    ///< refused by this client
    };

    Kind kind = Kind::Unknown;
    QUrl url;
    QString detail; ///< the engine's own name for it, for support; may be empty
};

Q_DECLARE_METATYPE(PageFailure)
