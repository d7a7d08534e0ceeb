#pragma once

#include <QtCore/QProcessEnvironment>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

/// Where the gateway is and how this client makes itself known there. Starts with what a development
/// gateway on this machine understands.
struct GatewaySettings
{
    QUrl address = QUrl(QStringLiteral("http://127.0.0.1:8087"));
    QString appKey = QStringLiteral("tl-client");
    QString appSecret = QStringLiteral("tl-client-development-secret");
    QStringList domains{QStringLiteral("vx.example")}; ///< whose addresses the user may add to the start list

    /// Reads the first of `files` that exists (keys gateway/address, gateway/app_key, gateway/app_secret, and
    /// gateway/domains, separated by commas); TL_GATEWAY_APP_KEY, TL_GATEWAY_APP_SECRET and
    /// TL_GATEWAY_DOMAINS of `environment` win over it. An invalid address keeps the default and puts a
    /// sentence into `problem`.
    static GatewaySettings Load(const QStringList& files, const QProcessEnvironment& environment,
                                QString* problem);

    /// The settings files of this installation, the most specific one first: `tl-client.ini` beside the
    /// program, then in the configuration folders of the user and the system.
    static QStringList DefaultFiles();

    /// The address as the requests need it: a bare host gets the gateway's path. Empty when `text` is no
    /// http or https address.
    static QUrl ToAddress(const QString& text);
};
