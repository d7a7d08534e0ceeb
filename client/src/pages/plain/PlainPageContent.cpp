#include "PlainPageContent.h"

#include "HtmlText.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QTextCodec>

namespace {

constexpr int SniffedLength = 1024; // [bytes]

bool IsHtml(const QString& type)
{
    return type == QLatin1String("text/html") || type == QLatin1String("application/xhtml+xml");
}

QTextCodec* CodecFor(const QByteArray& contentType, const QByteArray& body, bool html)
{
    static const QRegularExpression parameter(QStringLiteral("charset\\s*=\\s*[\"']?([^\"';\\s]+)"),
                                              QRegularExpression::CaseInsensitiveOption);
    QTextCodec* codec = QTextCodec::codecForUtfText(body, nullptr);
    if (!codec) {
        const QString name = parameter.match(QString::fromLatin1(contentType)).captured(1);
        codec = QTextCodec::codecForName(name.toLatin1());
    }
    QTextCodec* const standard = QTextCodec::codecForName("UTF-8");
    if (!codec && html) {
        codec = QTextCodec::codecForHtml(body, standard);
    }
    return codec ? codec : standard;
}

} // namespace

bool PlainPageContent::IsText(const QByteArray& contentType, const QByteArray& beginning)
{
    const QString type = TypeOf(contentType);
    if (type.isEmpty()) {
        return !beginning.left(SniffedLength).contains('\0');
    }
    return type.startsWith(QLatin1String("text/")) || IsHtml(type) || type.endsWith(QLatin1String("+json")) ||
           type.endsWith(QLatin1String("+xml")) || type == QLatin1String("application/json") ||
           type == QLatin1String("application/xml") || type == QLatin1String("application/javascript") ||
           type == QLatin1String("application/x-ndjson") || type == QLatin1String("application/yaml");
}

PlainPageContent PlainPageContent::Read(const QByteArray& contentType, const QByteArray& body)
{
    const bool html = IsHtml(TypeOf(contentType));
    QString text = CodecFor(contentType, body, html)->toUnicode(body);
    text.remove(QChar(QChar::ByteOrderMark));
    if (html) {
        const HtmlText read = HtmlText::Read(text);
        return {read.title, read.text};
    }
    return {QString(), text};
}

QString PlainPageContent::TypeOf(const QByteArray& contentType)
{
    return QString::fromLatin1(contentType.split(';').constFirst()).trimmed().toLower();
}
