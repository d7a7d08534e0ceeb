#pragma once

#include <QtCore/QtGlobal>

class QByteArray;
class QImage;

/// Decodes pictures from untrusted bytes. Any thread.
class ImageDecoder final
{
public:
    ImageDecoder() = delete;

    /// The picture, scaled down when it is wider or taller than `edge` [px]. Null when the bytes are not a
    /// picture, are damaged or of an unsupported kind, or when it has more than `maxPixels`.
    static QImage Decode(const QByteArray& bytes, qint64 maxPixels, int edge);
};
