#pragma once

#include "SettingKey.h"

#include <QtCore/QByteArray>

/// A row of the table exactly as the file has it: the texts in UTF-8, and a checksum over all of them, which
/// reveals a damaged value in a file that is otherwise sound.
struct SettingRow
{
    qint64 scope = 0;
    QByteArray user;
    QByteArray section;
    QByteArray field;
    QByteArray value;
    QByteArray checksum; ///< empty in a row of version 1, which had none

    /// Replaces what is not valid UTF-16.
    static SettingRow Of(const SettingKey& key, const QString& value);

    SettingKey GetKey() const;
    QString GetText() const;
    /// The checksum that the row ought to have.
    QByteArray CountChecksum() const;
    bool IsSound() const;
};
