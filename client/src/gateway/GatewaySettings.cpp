#include "gateway/GatewaySettings.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtCore/QStandardPaths>

#include <algorithm>

namespace {

const QString FileName = QStringLiteral("tl-client.ini");

} // namespace

GatewaySettings GatewaySettings::Load(const QStringList& files, const QProcessEnvironment& environment,
                                      QString* problem)
{
    GatewaySettings settings;
    settings.address = ToAddress(settings.address.toString());
    const auto found = std::find_if(files.begin(), files.end(),
                                    [](const QString& file) { return QFileInfo(file).isFile(); });
    if (found != files.end()) {
        QSettings ini(*found, QSettings::IniFormat);
        ini.setIniCodec("UTF-8");
        ini.beginGroup(QStringLiteral("gateway"));
        const QString address = ini.value(QStringLiteral("address")).toString();
        if (!address.isEmpty()) {
            const QUrl url = ToAddress(address);
            if (url.isEmpty()) {
                *problem = QStringLiteral("%1: gateway/address \"%2\" is no http or https address")
                               .arg(QDir::toNativeSeparators(*found), address);
            } else {
                settings.address = url;
            }
        }
        settings.appKey = ini.value(QStringLiteral("app_key"), settings.appKey).toString();
        settings.appSecret = ini.value(QStringLiteral("app_secret"), settings.appSecret).toString();
        // A value with commas is a list already.
        settings.domains = ini.value(QStringLiteral("domains"), settings.domains).toStringList();
    }
    settings.appKey = environment.value(QStringLiteral("TL_GATEWAY_APP_KEY"), settings.appKey);
    settings.appSecret = environment.value(QStringLiteral("TL_GATEWAY_APP_SECRET"), settings.appSecret);
    const QString domains = environment.value(QStringLiteral("TL_GATEWAY_DOMAINS"));
    if (!domains.isEmpty()) {
        settings.domains = domains.split(QLatin1Char(','));
    }
    return settings;
}

QStringList GatewaySettings::DefaultFiles()
{
    QStringList files{QDir(QCoreApplication::applicationDirPath()).filePath(FileName)};
#ifdef Q_OS_WIN
    // On Windows any user may put a file into the folder that is for all of them.
    const QStringList folders{QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)};
#else
    const QStringList folders = QStandardPaths::standardLocations(QStandardPaths::AppConfigLocation);
#endif
    for (const QString& folder : folders) {
        files.append(QDir(folder).filePath(FileName));
    }
    return files;
}

QUrl GatewaySettings::ToAddress(const QString& text)
{
    QUrl url(text.trimmed(), QUrl::StrictMode);
    const QString scheme = url.scheme();
    if (!url.isValid() || (scheme != QLatin1String("http") && scheme != QLatin1String("https")) ||
        url.host().isEmpty() || !url.userInfo().isEmpty()) {
        return QUrl();
    }
    if (url.path().isEmpty() || url.path() == QLatin1String("/")) {
        url.setPath(QStringLiteral("/gateway"));
    }
    return url;
}
