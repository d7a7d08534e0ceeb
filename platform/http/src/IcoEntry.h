#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QSize>

/// The largest picture of an ICO file. Any thread.
struct IcoEntry
{
    QByteArray file; ///< PNG, or an ICO file with this picture alone; null when there is none
    QSize size;      ///< as the picture's own head says

    /// Whether the bytes begin as an ICO file does.
    static bool IsIco(const QByteArray& bytes);
    /// Entries that reach beyond the file, and bitmaps of more than 256 by 256, are passed over.
    static IcoEntry FindLargest(const QByteArray& ico);
};
