#include "frame-data/TLUrlUtils.h"

#include <algorithm>

namespace {

constexpr int maximumLength = 8192; // [UTF-16 code units]

// Characters that have no place in an address, whatever a parser would make of them: they serve to
// show one address and open another.
bool IsRefused(QChar c)
{
    const ushort code = c.unicode();
    const bool bidirectionalControl = code == 0x061C || code == 0x200E || code == 0x200F ||
                                      (code >= 0x202A && code <= 0x202E) ||
                                      (code >= 0x2066 && code <= 0x2069);
    return c == QLatin1Char('\\') || c.category() == QChar::Other_Control || c.isSpace() ||
           bidirectionalControl;
}

} // namespace

QUrl TLUrlUtils::ToWebUrl(const QString& address)
{
    const QString text = address.trimmed();
    if (text.size() > maximumLength || std::any_of(text.cbegin(), text.cend(), IsRefused))
        return QUrl();

    int authorityBegin = 0;
    for (const QLatin1String prefix : {QLatin1String("http://"), QLatin1String("https://")}) {
        if (text.startsWith(prefix, Qt::CaseInsensitive))
            authorityBegin = prefix.size();
    }
    if (authorityBegin == 0)
        return QUrl();

    const auto endsAuthority = [](QChar c) {
        return c == QLatin1Char('/') || c == QLatin1Char('?') || c == QLatin1Char('#');
    };
    const auto authority = text.cbegin() + authorityBegin;
    const auto authorityEnd = std::find_if(authority, text.cend(), endsAuthority);
    // User info is refused also when it is empty: the parsed URL would not show that it was there.
    if (std::find(authority, authorityEnd, QLatin1Char('@')) != authorityEnd)
        return QUrl();

    QUrl url(text, QUrl::TolerantMode);
    const QString host = url.host();
    const bool hostNamesSomething =
        std::any_of(host.cbegin(), host.cend(), [](QChar c) { return c != QLatin1Char('.'); });
    if (!url.isValid() || !hostNamesSomething || !url.userInfo().isEmpty())
        return QUrl();
    return url;
}
