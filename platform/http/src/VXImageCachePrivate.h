#pragma once

#include "http/VXImageCache.h"

#include "ImageDownload.h"
#include "ImageFolder.h"
#include "ImageWorker.h"

#include <QtCore/QCache>
#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtNetwork/QNetworkAccessManager>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

/// The way of a request: looked up in the folder, fetched when that is not enough, decoded and kept, and
/// answered. One request is on its way for an address at a time, and all who ask meanwhile wait for it.
class VXImageCache::Private final : public QObject
{
    Q_OBJECT

public:
    Private(VXImageCache* cache, const QString& folder, const ImageCacheLimits& limits, Clock clock);
    ~Private() override;

    void Request(const QString& url, bool refresh);
    void Fetch(const QString& url, QObject* context, std::function<void(const QImage&)> done);
    void DropRequests();

private:
    struct Waiter
    {
        QPointer<QObject> context;
        std::function<void(const QImage&)> done;
    };
    struct Asked
    {
        bool announce = false; // by the signal
        bool refresh = false;
        std::vector<Waiter> waiters;
        ImageFolder::Picture older; // serves when fetching fails
        std::unique_ptr<ImageDownload> download;
    };
    struct Remembered
    {
        QImage image;
        qint64 fetched; // [ms since 1970, UTC]
    };

    /// One of those who asked for what the memory has.
    void AnswerKnown();
    /// What is asked for at the address; looking for it begins when nobody asked before.
    Asked& Ask(const QString& url);
    void OnLookedUp(const QString& url, const ImageFolder::Picture& picture);
    void StartDownloads();
    void OnDownloaded(const QString& url);
    /// Fetching failed; `problem` is for the log.
    void Fail(const QString& url, const QString& problem);
    /// The last thing that is done for a request; the cache may be gone when it returns.
    void Answer(const QString& url, const ImageFolder::Picture& picture);

    void Remember(const QString& url, const ImageFolder::Picture& picture);

    VXImageCache* const m_cache;
    const ImageCacheLimits m_limits;
    const Clock m_clock;

    QCache<QString, Remembered> m_memory;
    QHash<QString, qint64> m_failed; // when [ms since 1970, UTC]
    QNetworkAccessManager m_network;
    std::map<QString, Asked> m_asked;
    std::deque<std::pair<Waiter, QImage>> m_known; // asked for and in the memory, to be answered in order
    std::deque<QString> m_toDownload;
    int m_downloads = 0; // at this moment

    ImageFolder m_folder; // the worker's, while there is one
    ImageWorker m_worker;
};
