#include "TLRestartRecord.h"

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

namespace {

/// Reads like the stream itself, but accepts no count that the bytes cannot hold: the stream would allocate
/// memory for all texts before it read the first. (A single text is no such danger: the stream allocates its
/// memory piece by piece.)
QStringList ReadTexts(QDataStream& stream)
{
    constexpr qint64 leastSize = sizeof(quint32); // of a text: its length [byte]

    quint32 count = 0;
    stream >> count;
    if (stream.status() != QDataStream::Ok || count > stream.device()->bytesAvailable() / leastSize) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return {};
    }
    QStringList texts;
    texts.reserve(static_cast<int>(count));
    for (quint32 i = 0; i < count; ++i) {
        QString text;
        stream >> text;
        if (stream.status() != QDataStream::Ok) {
            return {};
        }
        texts.append(text);
    }
    return texts;
}

} // namespace

TLRestartRecord TLRestartRecord::FromText(const QString& text)
{
    TLRestartRecord record;
    const auto decoded =
        QByteArray::fromBase64Encoding(text.toUtf8(), QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded || decoded.decoded.isEmpty()) {
        return record;
    }
    QByteArray bytes = decoded.decoded;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::ReadOnly)) {
        return record;
    }
    QDataStream stream(&buffer);
    record.routerUrls = ReadTexts(stream);
    // A failed stream continues reading where it is, as if nothing had happened.
    if (stream.status() == QDataStream::Ok) {
        stream >> record.belongType;
    }
    return record;
}

QString TLRestartRecord::ToText() const
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly)) {
        return {};
    }
    QDataStream stream(&buffer);
    stream << routerUrls << belongType;
    buffer.close();
    return stream.status() == QDataStream::Ok ? QString::fromLatin1(bytes.toBase64()) : QString();
}
