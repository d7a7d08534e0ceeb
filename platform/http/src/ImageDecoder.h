#pragma once

#include <QtCore/QtGlobal>

class QByteArray;
class QImage;

/// Makes pictures of bytes that anybody may have sent. Any thread.
class ImageDecoder final
{
public:
    ImageDecoder() = delete;

    /// The picture, made smaller when it is wider or higher than `edge` [px]. Null when the bytes are no
    /// picture, damaged, or of a kind that is not taken, and when it has more than `maxPixels`.
    static QImage Decode(const QByteArray& bytes, qint64 maxPixels, int edge);
};
