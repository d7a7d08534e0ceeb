#include "IcoEntry.h"

#include "PngChunks.h"

#include <QtCore/QtEndian>

namespace {

const QByteArray Magic("\0\0\1\0", 4);
constexpr int HeadSize = 6;
constexpr int EntrySize = 16;
constexpr int MaxEntries = 64;
constexpr int MaxBitmapEdge = 256;

// The size from the header of a PNG file or of a bitmap; empty when it is neither.
QSize SizeOf(const QByteArray& picture)
{
    if (PngChunks::IsPng(picture)) {
        constexpr int widthAt = 16;
        if (picture.size() < widthAt + 8) {
            return QSize();
        }
        return QSize(int(qFromBigEndian<quint32>(picture.constData() + widthAt)),
                     int(qFromBigEndian<quint32>(picture.constData() + widthAt + 4)));
    }
    constexpr quint32 headSize = 40;
    if (picture.size() < int(headSize) || qFromLittleEndian<quint32>(picture.constData()) != headSize) {
        return QSize();
    }
    // The header counts the picture and its mask, one above the other.
    const QSize size(qFromLittleEndian<qint32>(picture.constData() + 4),
                     qFromLittleEndian<qint32>(picture.constData() + 8) / 2);
    return size.width() <= MaxBitmapEdge && size.height() <= MaxBitmapEdge ? size : QSize();
}

// An ICO file with the one picture of this entry.
QByteArray MakeIco(QByteArray entry, const QByteArray& picture)
{
    qToLittleEndian<quint32>(quint32(picture.size()), entry.data() + 8);
    qToLittleEndian<quint32>(HeadSize + EntrySize, entry.data() + 12);
    return Magic + QByteArray("\1\0", 2) + entry + picture;
}

} // namespace

bool IcoEntry::IsIco(const QByteArray& bytes)
{
    return bytes.startsWith(Magic) && bytes.size() >= HeadSize;
}

IcoEntry IcoEntry::FindLargest(const QByteArray& ico)
{
    IcoEntry largest;
    const int count = qMin<int>(qFromLittleEndian<quint16>(ico.constData() + 4), MaxEntries);
    for (int i = 0; i < count; ++i) {
        const QByteArray entry = ico.mid(HeadSize + i * EntrySize, EntrySize);
        if (entry.size() < EntrySize) {
            break;
        }
        const qint64 length = qFromLittleEndian<quint32>(entry.constData() + 8);
        const qint64 at = qFromLittleEndian<quint32>(entry.constData() + 12);
        if (at + length > ico.size()) {
            continue;
        }
        const QByteArray picture = ico.mid(int(at), int(length));
        const QSize size = SizeOf(picture);
        const bool larger = largest.size.isEmpty() || size.width() > largest.size.width();
        if (!size.isEmpty() && larger) {
            largest.size = size;
            largest.file = PngChunks::IsPng(picture) ? picture : MakeIco(entry, picture);
        }
    }
    return largest;
}
