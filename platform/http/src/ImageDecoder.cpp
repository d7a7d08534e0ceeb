#include "ImageDecoder.h"

#include "IcoEntry.h"
#include "PngChunks.h"
#include "SvgCheck.h"

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QtEndian>
#include <QtGui/QImage>
#include <QtGui/QImageReader>

namespace {

constexpr int SvgEdge = 256; // for pictures without a size of their own [px]

// What goes to Qt's reader. We name the format, so that it never guesses.
struct Source
{
    QByteArray format; // empty: refused
    QByteArray bytes;
};

Source PngSource(const QByteArray& bytes)
{
    const QByteArray stripped = PngChunks::Strip(bytes);
    return stripped.isNull() ? Source() : Source{"png", stripped};
}

Source IcoSource(const QByteArray& bytes)
{
    const QByteArray file = IcoEntry::FindLargest(bytes).file;
    if (file.isNull()) {
        return Source();
    }
    return PngChunks::IsPng(file) ? PngSource(file) : Source{"ico", file};
}

Source GifSource(const QByteArray& bytes)
{
    // The pictures inside may choose what the header leaves open.
    constexpr int widthAt = 6;
    const bool sized = bytes.size() >= widthAt + 4 &&
                       qFromLittleEndian<quint16>(bytes.constData() + widthAt) != 0 &&
                       qFromLittleEndian<quint16>(bytes.constData() + widthAt + 2) != 0;
    return sized ? Source{"gif", bytes} : Source();
}

Source SourceOf(const QByteArray& bytes)
{
    if (PngChunks::IsPng(bytes)) {
        return PngSource(bytes);
    }
    if (bytes.startsWith("\xff\xd8\xff")) {
        return {"jpeg", bytes};
    }
    if (bytes.startsWith("GIF87a") || bytes.startsWith("GIF89a")) {
        return GifSource(bytes);
    }
    if (bytes.startsWith("BM")) {
        return {"bmp", bytes};
    }
    if (IcoEntry::IsIco(bytes)) {
        return IcoSource(bytes);
    }
    if (SvgCheck::IsHarmless(bytes)) {
        return {"svg", bytes};
    }
    return Source();
}

QSize Fitted(const QSize& size, int edge)
{
    return size.scaled(edge, edge, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

} // namespace

QImage ImageDecoder::Decode(const QByteArray& bytes, qint64 maxPixels, int edge)
{
    Source source = SourceOf(bytes);
    if (source.format.isEmpty()) {
        return QImage();
    }
    QBuffer buffer(&source.bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, source.format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);

    const QSize size = reader.size();
    if (size.isEmpty()) {
        return QImage();
    }
    if (source.format == "svg") {
        reader.setScaledSize(Fitted(size, qMin(SvgEdge, edge)));
    } else if (qint64(size.width()) * size.height() > maxPixels) {
        return QImage();
    }
    QImage image = reader.read();
    if (image.width() > edge || image.height() > edge) {
        image = image.scaled(Fitted(image.size(), edge), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}
