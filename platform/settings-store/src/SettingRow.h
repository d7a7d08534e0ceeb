#pragma once

#include "SettingKey.h"

#include <QtCore/QByteArray>

/// A row of the table as the file has it, byte for byte: the texts in UTF-8, and a checksum over all of
/// them, which tells a value that was damaged inside a file that is otherwise sound.
struct SettingRow
{
    qint64 scope = 0;
    QByteArray user;
    QByteArray section;
    QByteArray field;
    QByteArray value;
    QByteArray checksum; ///< empty in a row of version 1, which had none

    /// What is no valid UTF-16 is replaced.
    static SettingRow Of(const SettingKey& key, const QString& value);

    SettingKey GetKey() const;
    QString GetText() const;
    /// The checksum that the row ought to have.
    QByteArray CountChecksum() const;
    bool IsSound() const;
};
