#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QSize>

/// The largest picture of an ICO file. Any thread.
struct IcoEntry
{
    QByteArray file; ///< PNG, or an ICO file with this picture alone; null when there is none
    QSize size;      ///< from the picture's own header

    /// Whether the bytes begin like an ICO file.
    static bool IsIco(const QByteArray& bytes);
    /// Skips entries that reach beyond the file, and bitmaps of more than 256 by 256.
    static IcoEntry FindLargest(const QByteArray& ico);
};
