#include "http/HttpReplyCache.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDataStream>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLoggingCategory>
#include <QtCore/QSaveFile>

namespace {

Q_LOGGING_CATEGORY(logCache, "tl.http.cache", QtInfoMsg)

constexpr int MaxReplies = 200;
constexpr qint64 MaxFileSize = qint64(8) * 1024 * 1024; // we write no larger file
const QByteArray Magic = QByteArrayLiteral("TLREPLY1");

QByteArray ChecksumOf(const QByteArray& key, const QByteArray& reply)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(key);
    hash.addData("\0", 1);
    hash.addData(reply);
    return hash.result();
}

// The file's fields after the magic number, in this order.
struct Record
{
    QByteArray key;
    QByteArray checksum;
    QByteArray reply;
};

QByteArray ToBytes(const Record& record)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream.writeRawData(Magic.constData(), Magic.size());
    stream << record.key << record.checksum << record.reply;
    return bytes;
}

bool FromBytes(const QByteArray& bytes, Record& record)
{
    if (!bytes.startsWith(Magic)) {
        return false;
    }
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_5_15);
    stream.skipRawData(Magic.size());
    stream >> record.key >> record.checksum >> record.reply;
    return stream.status() == QDataStream::Ok && stream.atEnd() && !record.reply.isNull() &&
           record.checksum == ChecksumOf(record.key, record.reply);
}

// Our files, and what an end in the middle of a write left behind.
QFileInfoList FilesOf(const QString& folder)
{
    return QDir(folder).entryInfoList({QStringLiteral("*.reply"), QStringLiteral("*.reply.*")},
                                      QDir::Files | QDir::Hidden | QDir::System, QDir::Time);
}

} // namespace

HttpReplyCache::HttpReplyCache(const QString& folder) : m_folder(folder) {}

bool HttpReplyCache::Save(const QString& key, const QByteArray& reply)
{
    const auto fail = [this](const QString& reason) {
        qCWarning(logCache).noquote()
            << "A reply could not be kept in" << QDir::toNativeSeparators(m_folder) << '-' << reason;
        return false;
    };
    const QByteArray utf8 = key.toUtf8();
    const QByteArray bytes = ToBytes({utf8, ChecksumOf(utf8, reply), reply});
    if (bytes.size() > MaxFileSize) {
        return fail(QStringLiteral("it is too large"));
    }
    if (!QDir().mkpath(m_folder)) {
        return fail(QStringLiteral("the folder cannot be created"));
    }
    QSaveFile file(FileOf(key));
    if (!file.open(QIODevice::WriteOnly) || !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) ||
        file.write(bytes) != bytes.size() || !file.commit()) {
        return fail(file.errorString());
    }
    const QFileInfoList files = FilesOf(m_folder); // newest first
    for (int i = MaxReplies; i < files.size(); ++i) {
        QFile::remove(files[i].absoluteFilePath());
    }
    return true;
}

QByteArray HttpReplyCache::Load(const QString& key) const
{
    QFile file(FileOf(key));
    if (!file.open(QIODevice::ReadOnly) || file.size() > MaxFileSize) {
        return QByteArray();
    }
    Record record;
    if (!FromBytes(file.readAll(), record) || record.key != key.toUtf8()) {
        qCWarning(logCache).noquote() << "A kept reply is damaged; it is ignored:" << file.fileName();
        return QByteArray();
    }
    return record.reply;
}

void HttpReplyCache::Clear()
{
    const QFileInfoList files = FilesOf(m_folder);
    for (const QFileInfo& file : files) {
        if (!QFile::remove(file.absoluteFilePath())) {
            qCWarning(logCache).noquote()
                << "A kept reply could not be removed:" << QDir::toNativeSeparators(file.absoluteFilePath());
        }
    }
}

QString HttpReplyCache::FileOf(const QString& key) const
{
    const QByteArray name = QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha256).toHex();
    return QDir(m_folder).filePath(QString::fromLatin1(name) + QStringLiteral(".reply"));
}
