#pragma once

#include "http/ImageCacheLimits.h"

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtGui/QImage>

#include <memory>

class QTemporaryDir;

/// The pictures on disk: a PNG file each, named after its address. A file's times say when its picture was
/// fetched (modified) and last requested (accessed). Used on one thread; another may destroy it afterwards.
class ImageFolder final
{
public:
    struct Picture
    {
        QString path; ///< empty: there is none
        QImage image;
        qint64 fetched = 0; ///< [ms since 1970, UTC]
    };

    /// `folder` empty: a temporary one.
    ImageFolder(const QString& folder, const ImageCacheLimits& limits);
    ~ImageFolder();

    ImageFolder(const ImageFolder&) = delete;
    ImageFolder& operator=(const ImageFolder&) = delete;

    /// The picture of the address, which counts as requested at `now` [ms since 1970, UTC]. Removes a damaged
    /// file.
    Picture Load(const QString& url, qint64 now);
    /// Keeps a picture fetched at `now`, and removes others when there are too many. The result has no path
    /// when the picture cannot be written.
    Picture Store(const QString& url, const QImage& image, qint64 now);

private:
    struct File
    {
        qint64 size = 0;
        qint64 used = 0; // [ms since 1970, UTC]
    };

    void Open();
    bool Take(const QString& folder);
    QString PathOf(const QString& name) const;
    void RemoveOldest(const QString& spared);

    QString m_folder;
    ImageCacheLimits m_limits;
    std::unique_ptr<QTemporaryDir> m_temporary;
    bool m_isOpen = false;
    QHash<QString, File> m_files; // by name
    qint64 m_size = 0;            // of all files
};
