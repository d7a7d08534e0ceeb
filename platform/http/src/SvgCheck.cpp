#include "SvgCheck.h"

#include <QtCore/QByteArray>
#include <QtCore/QSet>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QXmlStreamReader>

#include <algorithm>

namespace {

constexpr int MaxSize = 256 * 1024; // [bytes]
constexpr int MaxElements = 4000;
constexpr int MaxDepth = 32;
constexpr int MaxRepetitions = 64;

// Dashes can be so short that a line has millions of them; a back-slash can hide the word.
bool IsAllowedStyle(const QStringRef& text)
{
    return !text.contains(QLatin1String("dasharray"), Qt::CaseInsensitive) &&
           !text.contains(QLatin1Char('\\'));
}

bool IsAllowed(const QXmlStreamAttribute& attribute)
{
    if (attribute.name() == QLatin1String("href")) {
        return attribute.value().startsWith(QLatin1Char('#'));
    }
    return attribute.name() != QLatin1String("stroke-dasharray") &&
           (attribute.name() != QLatin1String("style") || IsAllowedStyle(attribute.value()));
}

// Counts and remembers what the elements request.
class Elements final
{
public:
    bool Begin(const QStringRef& name, const QXmlStreamAttributes& attributes)
    {
        if (m_count == 0 && name != QLatin1String("svg")) {
            return false;
        }
        ++m_count;
        m_open.append(attributes.value(QLatin1String("id")).toString());
        if (name == QLatin1String("use")) {
            ++m_repetitions;
            NoteRepetition(attributes);
        }
        return m_count <= MaxElements && m_open.size() <= MaxDepth && m_repetitions <= MaxRepetitions &&
               name != QLatin1String("image") &&
               std::all_of(attributes.cbegin(), attributes.cend(), IsAllowed);
    }
    void End() { m_open.removeLast(); }

    bool IsComplete() const { return m_count > 0 && !m_repeated.intersects(m_repeating); }

private:
    void NoteRepetition(const QXmlStreamAttributes& attributes)
    {
        for (const QString& id : qAsConst(m_open)) {
            m_repeating.insert(id);
        }
        m_repeating.remove(QString());
        for (const QXmlStreamAttribute& attribute : attributes) {
            if (attribute.name() == QLatin1String("href")) {
                m_repeated.insert(attribute.value().mid(1).toString());
            }
        }
    }

    int m_count = 0;
    int m_repetitions = 0;
    QStringList m_open; // the ids of the elements that are open
    QSet<QString> m_repeated;
    QSet<QString> m_repeating; // they repeat something; repeating them would multiply
};

} // namespace

bool SvgCheck::IsHarmless(const QByteArray& bytes)
{
    if (bytes.size() > MaxSize) {
        return false;
    }
    QXmlStreamReader reader(bytes);
    Elements elements;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            if (!elements.Begin(reader.name(), reader.attributes())) {
                return false;
            }
            break;
        case QXmlStreamReader::EndElement:
            elements.End();
            break;
        case QXmlStreamReader::DTD:
            if (!reader.entityDeclarations().isEmpty()) {
                return false;
            }
            break;
        case QXmlStreamReader::EntityReference:
            return false;
        case QXmlStreamReader::Characters:
            if (!IsAllowedStyle(reader.text())) { // it may be a style sheet
                return false;
            }
            break;
        default:
            break;
        }
    }
    return !reader.hasError() && elements.IsComplete();
}
