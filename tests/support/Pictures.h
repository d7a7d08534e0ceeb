#pragma once

#include <QtCore/QBuffer>
#include <QtCore/QByteArray>
#include <QtCore/QSize>
#include <QtCore/QtEndian>
#include <QtGui/QColor>
#include <QtGui/QImage>

/// Picture files for tests, good and bad ones.
namespace Pictures {

inline QImage Image(QSize size, const QColor& color)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

inline QByteArray File(const QImage& image, const char* format = "PNG")
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

inline QByteArray Png(const QColor& color = Qt::red, QSize size = QSize(24, 16))
{
    return File(Image(size, color));
}

inline QByteArray BigEndian(quint32 number)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

inline QByteArray LittleEndian(quint32 number, int bytes = 4)
{
    QByteArray all(4, '\0');
    qToLittleEndian(number, all.data());
    return all.left(bytes);
}

inline quint32 Crc32(const QByteArray& bytes)
{
    quint32 crc = 0xffffffffU;
    for (const char byte : bytes) {
        crc ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1) ^ ((crc & 1U) != 0 ? 0xedb88320U : 0U);
        }
    }
    return ~crc;
}

inline QByteArray PngChunk(const QByteArray& type, const QByteArray& data)
{
    return BigEndian(quint32(data.size())) + type + data + BigEndian(Crc32(type + data));
}

constexpr int PngHeadEnd = 33; // after the signature and the chunk with the size

/// A PNG file whose header gives a different size than its rows have.
inline QByteArray PngThatPromises(QSize size)
{
    QByteArray file = Png();
    const QByteArray head =
        BigEndian(quint32(size.width())) + BigEndian(quint32(size.height())) + file.mid(24, 5);
    return file.left(8) + PngChunk("IHDR", head) + file.mid(PngHeadEnd);
}

/// An ICO file with one entry, which claims to be `width` by `height`.
inline QByteArray Ico(const QByteArray& picture, quint8 width, quint8 height)
{
    return QByteArray("\0\0\1\0\1\0", 6) + QByteArray(1, char(width)) + QByteArray(1, char(height)) +
           QByteArray("\0\0\1\0\x20\0", 6) + LittleEndian(quint32(picture.size())) + LittleEndian(22) +
           picture;
}

inline QByteArray Gif(quint16 width, quint16 height)
{
    // One picture of 2 by 2 in white.
    return "GIF89a" + LittleEndian(width, 2) + LittleEndian(height, 2) +
           QByteArray::fromHex("800000000000ffffff2c00000000020002000002038c2d05003b");
}

inline QByteArray Svg(const QByteArray& content, const QByteArray& before = QByteArray())
{
    return before +
           "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
           "width=\"24\" height=\"24\" viewBox=\"0 0 24 24\">" +
           content + "</svg>";
}

} // namespace Pictures
