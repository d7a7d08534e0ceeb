#include "SettingRow.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QTextCodec>
#include <QtCore/QtEndian>

namespace {

constexpr int ChecksumSize = 8; // [bytes]

// The values of the column "scope".
constexpr qint64 ScopeGlobal = 0;
constexpr qint64 ScopeUser = 1;

// A null text means the same as an empty one, but SQLite would take it for no value.
QByteArray ToBytes(const QString& text)
{
    return text.isEmpty() ? QByteArray("") : text.toUtf8();
}

// Unlike QString::fromUtf8, this keeps a byte order mark at the beginning.
QString FromBytes(const QByteArray& bytes)
{
    constexpr int utf8 = 106;
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return QTextCodec::codecForMib(utf8)->toUnicode(bytes.constData(), bytes.size(), &state);
}

void AddNumber(qint64 number, QCryptographicHash* hash)
{
    const qint64 bytes = qToLittleEndian(number);
    hash->addData(reinterpret_cast<const char*>(&bytes), sizeof bytes);
}

} // namespace

SettingRow SettingRow::Of(const SettingKey& key, const QString& value)
{
    SettingRow row;
    row.scope = key.ofUser ? ScopeUser : ScopeGlobal;
    row.user = ToBytes(key.user);
    row.section = ToBytes(key.section);
    row.field = ToBytes(key.field);
    row.value = ToBytes(value);
    row.checksum = row.CountChecksum();
    return row;
}

SettingKey SettingRow::GetKey() const
{
    return {scope == ScopeUser, FromBytes(user), FromBytes(section), FromBytes(field)};
}

QString SettingRow::GetText() const
{
    return FromBytes(value);
}

QByteArray SettingRow::CountChecksum() const
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    AddNumber(scope, &hash);
    for (const QByteArray* bytes : {&user, &section, &field, &value}) {
        AddNumber(bytes->size(), &hash); // so that no byte can move to its neighbour unnoticed
        hash.addData(*bytes);
    }
    return hash.result().left(ChecksumSize);
}

bool SettingRow::IsSound() const
{
    return checksum == CountChecksum();
}
