#include "base/VXRouterProtocol.h"

#include "base/IRouteExecutor.h"

#include <QtCore/QLoggingCategory>
#include <QtCore/QTextCodec>
#include <QtCore/QUrl>

#include <algorithm>

namespace {

Q_LOGGING_CATEGORY(logRouter, "tl.router")

int HexDigit(QChar c)
{
    const ushort code = c.unicode();
    if (code >= '0' && code <= '9') {
        return code - '0';
    }
    if (code >= 'a' && code <= 'f') {
        return code - 'a' + 10;
    }
    if (code >= 'A' && code <= 'F') {
        return code - 'A' + 10;
    }
    return -1;
}

// The byte that the percent sequence at `position` encodes, or -1 when there is no such sequence.
int PercentByte(const QStringRef& text, int position)
{
    if (position + 2 >= text.size() || text.at(position) != QLatin1Char('%')) {
        return -1;
    }
    const int high = HexDigit(text.at(position + 1));
    const int low = HexDigit(text.at(position + 2));
    return high < 0 || low < 0 ? -1 : high * 16 + low;
}

// Malformed percent sequences, and those that are not UTF-8, stay as they are.
QString Decode(const QStringRef& text)
{
    static QTextCodec* const utf8 = QTextCodec::codecForName("UTF-8");
    QString decoded;
    decoded.reserve(text.size());
    for (int i = 0; i < text.size();) {
        QByteArray bytes;
        int next = i;
        for (int byte = PercentByte(text, next); byte >= 0; byte = PercentByte(text, next)) {
            bytes.append(char(byte));
            next += 3;
        }
        if (bytes.isEmpty()) {
            decoded.append(text.at(i++));
            continue;
        }
        QTextCodec::ConverterState state(QTextCodec::IgnoreHeader); // a leading U+FEFF is part of the value
        const QString characters = utf8->toUnicode(bytes.constData(), bytes.size(), &state);
        if (state.invalidChars == 0 && state.remainingChars == 0) {
            decoded.append(characters);
        } else {
            decoded.append(text.mid(i, next - i));
        }
        i = next;
    }
    return decoded;
}

QString Encode(const QString& text)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

// The parts of `tl://<module>/<path>`; `module` is null when the text is not a router URL.
struct RouteParts
{
    QStringRef module;
    QStringRef path;
};

RouteParts Split(const QString& url)
{
    static const QLatin1String scheme("tl://");
    if (!url.startsWith(scheme, Qt::CaseInsensitive)) {
        return {};
    }
    const auto end = std::find_if(url.cbegin(), url.cend(),
                                  [](QChar c) { return c == QLatin1Char('?') || c == QLatin1Char('#'); });
    const int length = int(end - url.cbegin());
    const auto slash = std::find(url.cbegin() + scheme.size(), end, QLatin1Char('/'));
    const int moduleEnd = int(slash - url.cbegin());
    if (moduleEnd == scheme.size()) {
        return {};
    }
    return {url.midRef(scheme.size(), moduleEnd - scheme.size()), url.midRef(moduleEnd, length - moduleEnd)};
}

// The executor, if `base` is a router URL and an executor is provided; otherwise null and a warning. The log
// leaves out the query, which may hold the user's data.
IRouteExecutor* ExecutorOrWarning(const QString& base)
{
    if (Split(base).module.isNull()) {
        qCWarning(logRouter, "Not a router URL: %ls", qUtf16Printable(base));
        return nullptr;
    }
    IRouteExecutor* executor = IRouteExecutor::Provided();
    if (!executor) {
        qCWarning(logRouter, "No router is provided for %ls", qUtf16Printable(base));
    }
    return executor;
}

} // namespace

VXRouterProtocol::VXRouterProtocol(const QString& url)
{
    const int hash = url.indexOf(QLatin1Char('#'));
    const QStringRef beforeFragment = url.leftRef(hash);
    if (hash >= 0) {
        m_fragment = url.mid(hash + 1);
    }

    const int questionMark = beforeFragment.indexOf(QLatin1Char('?'));
    m_base = beforeFragment.left(questionMark).toString();
    if (questionMark < 0) {
        return;
    }
    const QVector<QStringRef> parts =
        beforeFragment.mid(questionMark + 1).split(QLatin1Char('&'), Qt::SkipEmptyParts);
    for (const QStringRef& part : parts) {
        const int equals = part.indexOf(QLatin1Char('='));
        // A key without "=" has a null value, so that it is written the way it came.
        const QString value = equals < 0 ? QString() : QLatin1String("") + Decode(part.mid(equals + 1));
        m_parameters.append({Decode(part.left(equals)), value});
    }
}

bool VXRouterProtocol::Matches(const QString& url) const
{
    const RouteParts mine = Split(m_base);
    const RouteParts theirs = Split(url);
    return !mine.module.isNull() && !theirs.module.isNull() &&
           mine.module.compare(theirs.module, Qt::CaseInsensitive) == 0 && mine.path == theirs.path;
}

QString VXRouterProtocol::GetWith(const QString& key) const
{
    for (const QPair<QString, QString>& parameter : m_parameters) {
        if (parameter.first == key) {
            return parameter.second;
        }
    }
    return QString();
}

VXRouterProtocol& VXRouterProtocol::With(const QString& key, const QString& value)
{
    const auto hasKey = [&key](const QPair<QString, QString>& parameter) { return parameter.first == key; };
    const QString notNull = value.isNull() ? QLatin1String("") : value;
    const auto found = std::find_if(m_parameters.begin(), m_parameters.end(), hasKey);
    if (found == m_parameters.end()) {
        m_parameters.append({key, notNull});
        return *this;
    }
    found->second = notNull;
    m_parameters.erase(std::remove_if(found + 1, m_parameters.end(), hasKey), m_parameters.end());
    return *this;
}

QString VXRouterProtocol::GetUrl() const
{
    QString url = m_base;
    QChar separator = QLatin1Char('?');
    for (const QPair<QString, QString>& parameter : m_parameters) {
        url += separator + Encode(parameter.first);
        if (!parameter.second.isNull()) {
            url += QLatin1Char('=') + Encode(parameter.second);
        }
        separator = QLatin1Char('&');
    }
    if (!m_fragment.isEmpty()) {
        url += QLatin1Char('#') + m_fragment;
    }
    return url;
}

bool VXRouterProtocol::Execute() const
{
    IRouteExecutor* executor = ExecutorOrWarning(m_base);
    return executor && executor->ExecuteRoute(*this);
}

QObject* VXRouterProtocol::GetObj() const
{
    IRouteExecutor* executor = ExecutorOrWarning(m_base);
    return executor ? executor->GetRouteObject(*this) : nullptr;
}
