#include "frame-data/TLUrlUtils.h"

#include <algorithm>

namespace {

constexpr int MaximumLength = 8192; // [UTF-16 code units]
constexpr int MaximumStored = 2048; // [code points]

// Characters that do not belong in an address, whatever a parser makes of them: they serve to show one
// address and open another.
bool IsRefused(QChar c)
{
    const ushort code = c.unicode();
    const bool bidirectionalControl = code == 0x061C || code == 0x200E || code == 0x200F ||
                                      (code >= 0x202A && code <= 0x202E) ||
                                      (code >= 0x2066 && code <= 0x2069);
    return c == QLatin1Char('\\') || c.category() == QChar::Other_Control || c.isSpace() ||
           bidirectionalControl;
}

bool IsControl(QChar c)
{
    return c.category() == QChar::Other_Control;
}

// The text between the scheme and the path; null without http or https.
QStringRef AuthorityOf(const QString& text)
{
    int begin = 0;
    for (const QLatin1String prefix : {QLatin1String("http://"), QLatin1String("https://")}) {
        if (text.startsWith(prefix, Qt::CaseInsensitive)) {
            begin = prefix.size();
        }
    }
    if (begin == 0) {
        return QStringRef();
    }
    const auto endsAuthority = [](QChar c) {
        return c == QLatin1Char('/') || c == QLatin1Char('?') || c == QLatin1Char('#');
    };
    const auto end = std::find_if(text.cbegin() + begin, text.cend(), endsAuthority);
    return text.midRef(begin, int(end - text.cbegin()) - begin);
}

// Whether normalising the host name only changes its letters to lower case and punycode.
bool IsPlainHost(const QString& host)
{
    const auto isChanged = [](QChar c) {
        return c == QLatin1Char('%') || c.category() == QChar::Other_Format ||
               c.unicode() == 0x3002 /* full stop */ || c.unicode() == 0x00DF /* sharp s */ ||
               c.unicode() == 0x03C2 /* final sigma */;
    };
    return std::none_of(host.cbegin(), host.cend(), isChanged) &&
           host.normalized(QString::NormalizationForm_KC) == host;
}

QStringList& VXDomains()
{
    static QStringList domains;
    return domains;
}

bool IsIn(const QString& host, const QString& domain)
{
    return host == domain ||
           (host.endsWith(domain) && host.at(host.size() - domain.size() - 1) == QLatin1Char('.'));
}

} // namespace

QUrl TLUrlUtils::ToWebUrl(const QString& address)
{
    const QString text = address.trimmed();
    if (text.size() > MaximumLength || std::any_of(text.cbegin(), text.cend(), IsRefused)) {
        return QUrl();
    }

    const QStringRef authority = AuthorityOf(text);
    // Refuses empty user info, too: the parsed URL would not show it.
    if (authority.isNull() || authority.contains(QLatin1Char('@'))) {
        return QUrl();
    }

    QUrl url(text, QUrl::TolerantMode);
    const QString host = url.host();
    const bool hostNamesSomething =
        std::any_of(host.cbegin(), host.cend(), [](QChar c) { return c != QLatin1Char('.'); });
    if (!url.isValid() || !hostNamesSomething || !url.userInfo().isEmpty()) {
        return QUrl();
    }
    return url;
}

bool TLUrlUtils::IsVXUrl(const QString& address)
{
    if (std::any_of(address.cbegin(), address.cend(), IsControl)) {
        return false;
    }
    const QUrl url = ToWebUrl(address);
    if (url.isEmpty() || address.toUcs4().size() > MaximumStored) {
        return false;
    }

    const QString text = address.trimmed();
    const QStringRef authority = AuthorityOf(text);
    if (!IsPlainHost(authority.left(authority.indexOf(QLatin1Char(':'))).toString().toLower())) {
        return false;
    }

    const QString host = url.host(QUrl::FullyEncoded);
    const QStringList& domains = VXDomains();
    return std::any_of(domains.cbegin(), domains.cend(),
                       [&host](const QString& domain) { return IsIn(host, domain); });
}

void TLUrlUtils::SetVXDomains(const QStringList& domains)
{
    VXDomains().clear();
    for (const QString& domain : domains) {
        const QString normalised = QString::fromLatin1(QUrl::toAce(domain.trimmed())).toLower();
        if (!normalised.isEmpty()) {
            VXDomains().append(normalised);
        }
    }
}

QStringList TLUrlUtils::GetVXDomains()
{
    return VXDomains();
}
