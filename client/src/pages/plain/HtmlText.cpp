#include "HtmlText.h"

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <QtCore/QStringList>
#include <QtCore/QVector>

namespace {

constexpr int LongestEntity = 32; // characters between & and ;

/// Elements that stand on lines of their own.
bool IsBlock(const QString& name)
{
    static const QSet<QString> blocks = [] {
        QSet<QString> names;
        const QString list = QStringLiteral(
            "address article aside blockquote body br caption center dd details dialog div dl dt "
            "fieldset figcaption figure footer form h1 h2 h3 h4 h5 h6 head header hr html legend "
            "li main nav ol option p pre section summary table tbody tfoot thead tr ul");
        for (const QString& word : list.split(QLatin1Char(' '))) {
            names.insert(word);
        }
        return names;
    }();
    return blocks.contains(name);
}

/// Elements whose content is not for a reader.
bool IsHidden(const QString& name)
{
    return name == QLatin1String("script") || name == QLatin1String("style") ||
           name == QLatin1String("template");
}

QString EntityText(const QString& name)
{
    static const QHash<QString, QString> known = {
        {QStringLiteral("amp"), QStringLiteral("&")},
        {QStringLiteral("lt"), QStringLiteral("<")},
        {QStringLiteral("gt"), QStringLiteral(">")},
        {QStringLiteral("quot"), QStringLiteral("\"")},
        {QStringLiteral("apos"), QStringLiteral("'")},
        {QStringLiteral("nbsp"), QStringLiteral(" ")},
        {QStringLiteral("copy"), QString(QChar(0x00A9))},
        {QStringLiteral("reg"), QString(QChar(0x00AE))},
        {QStringLiteral("euro"), QString(QChar(0x20AC))},
        {QStringLiteral("ndash"), QString(QChar(0x2013))},
        {QStringLiteral("mdash"), QString(QChar(0x2014))},
        {QStringLiteral("hellip"), QString(QChar(0x2026))},
        {QStringLiteral("middot"), QString(QChar(0x00B7))},
        {QStringLiteral("laquo"), QString(QChar(0x00AB))},
        {QStringLiteral("raquo"), QString(QChar(0x00BB))},
        {QStringLiteral("times"), QString(QChar(0x00D7))},
    };
    if (!name.startsWith(QLatin1Char('#'))) {
        return known.value(name);
    }
    const bool hexadecimal = name.midRef(1, 1).compare(QLatin1String("x"), Qt::CaseInsensitive) == 0;
    bool isNumber = false;
    const uint code = name.midRef(hexadecimal ? 2 : 1).toUInt(&isNumber, hexadecimal ? 16 : 10);
    if (!isNumber || code == 0 || code > QChar::LastValidCodePoint || QChar::isSurrogate(code)) {
        return {};
    }
    return QString::fromUcs4(&code, 1);
}

class Reader final
{
public:
    explicit Reader(const QString& html) : m_html(html) {}

    HtmlText Read()
    {
        while (m_place < m_html.size()) {
            const QChar c = m_html.at(m_place);
            if (c == QLatin1Char('<') && ReadMarkup()) {
                continue;
            }
            if (c == QLatin1Char('&') && ReadEntity()) {
                continue;
            }
            Add(c);
            ++m_place;
        }
        EndLine();
        return {m_title.simplified(), m_lines.join(QLatin1Char('\n')).trimmed()};
    }

private:
    bool ReadMarkup()
    {
        if (m_html.midRef(m_place, 4) == QLatin1String("<!--")) {
            const int end = m_html.indexOf(QLatin1String("-->"), m_place + 4);
            m_place = end < 0 ? m_html.size() : end + 3;
            return true;
        }
        int name = m_place + 1;
        const bool isEnd = name < m_html.size() && m_html.at(name) == QLatin1Char('/');
        if (isEnd) {
            ++name;
        }
        if (name >= m_html.size()) {
            return false;
        }
        const QChar first = m_html.at(name);
        if (first == QLatin1Char('!') || first == QLatin1Char('?')) {
            m_place = EndOfTag(name);
            return true;
        }
        if (!first.isLetter()) {
            return false; // a bare "<" in the text
        }
        int end = name;
        while (end < m_html.size() && m_html.at(end).isLetterOrNumber()) {
            ++end;
        }
        const QString element = m_html.mid(name, end - name).toLower();
        m_place = EndOfTag(end);
        ReadElement(element, isEnd);
        return true;
    }

    /// The place after the ">" that ends the tag; one in a quoted attribute does not end it.
    int EndOfTag(int from) const
    {
        QChar quote;
        for (int i = from; i < m_html.size(); ++i) {
            const QChar c = m_html.at(i);
            if (!quote.isNull()) {
                if (c == quote) {
                    quote = QChar();
                }
            } else if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
                quote = c;
            } else if (c == QLatin1Char('>')) {
                return i + 1;
            }
        }
        return m_html.size();
    }

    void ReadElement(const QString& element, bool isEnd)
    {
        if (IsHidden(element) && !isEnd) {
            SkipTo(element);
            return;
        }
        if (element == QLatin1String("title")) {
            m_inTitle = !isEnd && m_title.isEmpty();
        } else if (element == QLatin1String("pre")) {
            m_keepLines = !isEnd;
        }
        if (IsBlock(element)) {
            EndLine();
        } else if (element == QLatin1String("td") || element == QLatin1String("th")) {
            Add(QLatin1Char(' '));
        }
    }

    /// Moves past the end of a hidden element.
    void SkipTo(const QString& element)
    {
        const int end = m_html.indexOf(QLatin1String("</") + element, m_place, Qt::CaseInsensitive);
        m_place = end < 0 ? m_html.size() : EndOfTag(end + 2);
    }

    bool ReadEntity()
    {
        const int semicolon = m_html.midRef(m_place, LongestEntity).indexOf(QLatin1Char(';'));
        if (semicolon < 2) {
            return false;
        }
        const QString text = EntityText(m_html.mid(m_place + 1, semicolon - 1));
        if (text.isEmpty()) {
            return false;
        }
        for (const QChar c : text) {
            Add(c);
        }
        m_place += semicolon + 1;
        return true;
    }

    void Add(QChar c)
    {
        if (m_inTitle) {
            m_title += c;
        } else if (m_keepLines) {
            if (c == QLatin1Char('\n')) {
                EndLine();
            } else {
                m_line += c;
            }
        } else if (!c.isSpace()) {
            m_line += c;
        } else if (!m_line.isEmpty() && !m_line.endsWith(QLatin1Char(' '))) {
            m_line += QLatin1Char(' ');
        }
    }

    void EndLine()
    {
        while (!m_line.isEmpty() && m_line.at(m_line.size() - 1).isSpace()) {
            m_line.chop(1);
        }
        // Nested blocks end many lines at one place.
        if (!m_line.isEmpty() || (m_keepLines && !m_lines.isEmpty() && !m_lines.constLast().isEmpty())) {
            m_lines << m_line;
        }
        m_line.clear();
    }

    const QString& m_html;
    int m_place = 0;
    QString m_title;
    QStringList m_lines;
    QString m_line;
    bool m_inTitle = false;
    bool m_keepLines = false; // inside <pre>
};

} // namespace

HtmlText HtmlText::Read(const QString& html)
{
    return Reader(html).Read();
}
