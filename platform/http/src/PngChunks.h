#pragma once

class QByteArray;

/// The chunks of a PNG file. Any thread.
namespace PngChunks {

/// Whether the bytes begin like a PNG file.
bool IsPng(const QByteArray& bytes);

/// The file without everything that is not the picture itself: texts and colour profiles are compressed, and
/// a few bytes of them can fill the memory. Null when the chunks are damaged or do not end.
QByteArray Strip(const QByteArray& png);

} // namespace PngChunks
