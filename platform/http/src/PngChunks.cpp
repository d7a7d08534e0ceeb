#include "PngChunks.h"

#include <QtCore/QByteArray>
#include <QtCore/QtEndian>

namespace {

const QByteArray Signature = QByteArrayLiteral("\x89PNG\r\n\x1a\n");
constexpr int FrameSize = 12; // length, type and checksum of a chunk

bool IsPicture(const QByteArray& type)
{
    return type == "IHDR" || type == "PLTE" || type == "tRNS" || type == "IDAT";
}

} // namespace

bool PngChunks::IsPng(const QByteArray& bytes)
{
    return bytes.startsWith(Signature);
}

QByteArray PngChunks::Strip(const QByteArray& png)
{
    QByteArray stripped = Signature;
    int at = Signature.size();
    while (png.size() - at >= FrameSize) {
        const quint32 length = qFromBigEndian<quint32>(png.constData() + at);
        if (length > quint32(png.size() - at - FrameSize)) {
            return QByteArray();
        }
        const int size = FrameSize + int(length);
        const QByteArray type = png.mid(at + 4, 4);
        if (type == "IEND") {
            return stripped + png.mid(at, size);
        }
        if (IsPicture(type)) {
            stripped += png.mid(at, size);
        }
        at += size;
    }
    return QByteArray();
}
