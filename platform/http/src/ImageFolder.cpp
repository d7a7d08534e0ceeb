#include "ImageFolder.h"

#include "ImageDecoder.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLoggingCategory>
#include <QtCore/QSaveFile>
#include <QtCore/QTemporaryDir>

#include <algorithm>

namespace {

Q_LOGGING_CATEGORY(logFolder, "tl.http.images", QtInfoMsg)

constexpr qint64 MaxFileSize = qint64(8) * 1024 * 1024; // we write no larger file

const QString Suffix = QStringLiteral(".png");

QString NameOf(const QString& url)
{
    const QByteArray hash = QCryptographicHash::hash(url.toUtf8(), QCryptographicHash::Sha256);
    return QString::fromLatin1(hash.toHex().left(40)) + Suffix;
}

void SetTime(QFile& file, qint64 time, QFileDevice::FileTime which)
{
    // If this fails, the picture only looks older or newer than it is.
    file.setFileTime(QDateTime::fromMSecsSinceEpoch(time, Qt::UTC), which);
}

} // namespace

ImageFolder::ImageFolder(const QString& folder, const ImageCacheLimits& limits)
    : m_folder(folder), m_limits(limits)
{}

ImageFolder::~ImageFolder() = default;

ImageFolder::Picture ImageFolder::Load(const QString& url, qint64 now)
{
    Open();
    const QString name = NameOf(url);
    Picture picture;
    QFile file(PathOf(name));
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) {
        m_size -= m_files.take(name).size;
        return picture;
    }
    const qint64 fetched = QFileInfo(file.fileName()).lastModified().toMSecsSinceEpoch();
    if (file.size() <= MaxFileSize) {
        picture.image = ImageDecoder::Decode(file.readAll(), m_limits.pixels, m_limits.edge);
    }
    if (picture.image.isNull()) {
        qCWarning(logFolder).noquote() << "A kept picture is damaged; it is removed:" << file.fileName();
        file.remove();
        m_size -= m_files.take(name).size;
        return picture;
    }
    SetTime(file, now, QFileDevice::FileAccessTime);
    File& known = m_files[name];
    m_size += file.size() - known.size;
    known = {file.size(), now};
    picture.path = file.fileName();
    picture.fetched = fetched;
    return picture;
}

ImageFolder::Picture ImageFolder::Store(const QString& url, const QImage& image, qint64 now)
{
    Open();
    const QString name = NameOf(url);
    QDir().mkpath(m_folder); // someone may have removed it
    QSaveFile file(PathOf(name));
    if (!file.open(QIODevice::WriteOnly) || !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) ||
        !image.save(&file, "PNG") || !file.commit()) {
        qCWarning(logFolder).noquote() << "A picture could not be kept in"
                                       << QDir::toNativeSeparators(m_folder) << '-' << file.errorString();
        return {QString(), image, now};
    }
    QFile written(file.fileName());
    if (written.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) {
        SetTime(written, now, QFileDevice::FileAccessTime);
        SetTime(written, now, QFileDevice::FileModificationTime);
    }
    File& known = m_files[name];
    m_size += written.size() - known.size;
    known = {written.size(), now};
    RemoveOldest(name);
    return {written.fileName(), image, now};
}

void ImageFolder::Open()
{
    if (m_isOpen) {
        return;
    }
    m_isOpen = true;
    if (!m_folder.isEmpty() && Take(m_folder)) {
        return;
    }
    if (!m_folder.isEmpty()) {
        qCWarning(logFolder).noquote() << "No pictures can be kept in" << QDir::toNativeSeparators(m_folder);
    }
    m_temporary = std::make_unique<QTemporaryDir>();
    m_folder = m_temporary->path();
}

bool ImageFolder::Take(const QString& folder)
{
    const QDir dir(folder);
    if (!dir.mkpath(QStringLiteral(".")) || !QFileInfo(folder).isWritable()) {
        return false;
    }
    const QFileInfoList files =
        dir.entryInfoList({QLatin1Char('*') + Suffix, QLatin1Char('*') + Suffix + QStringLiteral(".*")},
                          QDir::Files | QDir::Hidden | QDir::System);
    for (const QFileInfo& file : files) {
        if (file.fileName().endsWith(Suffix)) {
            m_files.insert(file.fileName(), {file.size(), file.lastRead().toMSecsSinceEpoch()});
            m_size += file.size();
        } else {
            QFile::remove(file.absoluteFilePath()); // left by an end in the middle of a write
        }
    }
    RemoveOldest(QString());
    return true;
}

QString ImageFolder::PathOf(const QString& name) const
{
    return QDir(m_folder).absoluteFilePath(name);
}

void ImageFolder::RemoveOldest(const QString& spared)
{
    while (m_files.size() > m_limits.diskCount || m_size > m_limits.diskSize) {
        auto oldest = m_files.end();
        for (auto it = m_files.begin(); it != m_files.end(); ++it) {
            if (it.key() != spared && (oldest == m_files.end() || it->used < oldest->used)) {
                oldest = it;
            }
        }
        if (oldest == m_files.end()) {
            return;
        }
        QFile::remove(PathOf(oldest.key()));
        m_size -= oldest->size;
        m_files.erase(oldest);
    }
}
