#include "pages/AddressInput.h"

#include "frame-data/TLUrlUtils.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QVector>

#include <algorithm>

namespace {

/// Whether the host can be shown with letters beyond ASCII: none is from an alphabet with letters that look
/// like Latin ones.
bool IsReadable(const QString& host)
{
    constexpr uint lastOfLatinExtended = 0x24f; // beyond it are letters that look like plain ones
    const QVector<uint> letters = host.toUcs4();
    return std::all_of(letters.cbegin(), letters.cend(), [](uint letter) {
        switch (QChar::script(letter)) {
        case QChar::Script_Common:
        case QChar::Script_Inherited:
        case QChar::Script_Han:
        case QChar::Script_Hiragana:
        case QChar::Script_Katakana:
        case QChar::Script_Bopomofo:
        case QChar::Script_Hangul:
            return true;
        case QChar::Script_Latin:
            return letter <= lastOfLatinExtended;
        default:
            return false;
        }
    });
}

} // namespace

QUrl AddressInput::ToUrl(const QString& typed)
{
    const QString text = typed.trimmed();
    static const QRegularExpression scheme(QStringLiteral("^([a-zA-Z][a-zA-Z0-9+.-]*):(.*)$"),
                                           QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression port(QStringLiteral("^[0-9]{1,5}(?:[/?#].*)?$"));
    static const QRegularExpression space(QStringLiteral("\\s"));

    // "localhost:8080" and "shop.example:8443/a" begin like a scheme, but a port follows.
    const QRegularExpressionMatch match = scheme.match(text);
    if (match.hasMatch() && !port.match(match.captured(2)).hasMatch()) {
        return TLUrlUtils::ToWebUrl(text);
    }

    if (text.isEmpty() || text.contains(space)) {
        return {};
    }
    return TLUrlUtils::ToWebUrl(QStringLiteral("https://") + text);
}

QString AddressInput::ToDisplay(const QUrl& url)
{
    const QUrl::ComponentFormattingOptions decoding =
        IsReadable(url.host()) ? QUrl::PrettyDecoded : QUrl::PrettyDecoded | QUrl::EncodeUnicode;
    return url.toDisplayString(QUrl::FormattingOptions(QUrl::RemoveUserInfo) | decoding);
}

QString AddressInput::ToDisplayHost(const QUrl& url)
{
    const QString host = url.host();
    return IsReadable(host) ? host : url.host(QUrl::EncodeUnicode);
}
