#include "browser/AddressInput.h"

#include "frame-data/TLUrlUtils.h"

#include <QtCore/QRegularExpression>

QUrl AddressInput::ToUrl(const QString& typed)
{
    const QString text = typed.trimmed();
    static const QRegularExpression scheme(QStringLiteral("^([a-zA-Z][a-zA-Z0-9+.-]*):(.*)$"),
                                           QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression port(QStringLiteral("^[0-9]{1,5}(?:[/?#].*)?$"));
    static const QRegularExpression space(QStringLiteral("\\s"));

    // "localhost:8080" and "shop.example:8443/a" begin like a scheme, but a port follows.
    const QRegularExpressionMatch match = scheme.match(text);
    if (match.hasMatch() && !port.match(match.captured(2)).hasMatch())
        return TLUrlUtils::ToWebUrl(text);

    if (text.isEmpty() || text.contains(space))
        return {};
    return TLUrlUtils::ToWebUrl(QStringLiteral("https://") + text);
}

QString AddressInput::ToDisplay(const QUrl& url)
{
    return url.toDisplayString(QUrl::RemoveUserInfo | QUrl::PrettyDecoded);
}
