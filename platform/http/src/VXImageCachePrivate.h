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

/// Carries out requests: looks a picture up in the folder, fetches it when that is not enough, decodes it,
/// keeps it and answers. There is one request per address at a time; all callers of that address wait for it.
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
        bool announce = false; // answer by the signal
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

    /// Answers one request for a picture that is in memory.
    void AnswerKnown();
    /// The request for the address; starts looking it up when it is new.
    Asked& Ask(const QString& url);
    void OnLookedUp(const QString& url, const ImageFolder::Picture& picture);
    void StartDownloads();
    void OnDownloaded(const QString& url);
    /// Fetching failed; `problem` is for the log.
    void Fail(const QString& url, const QString& problem);
    /// Ends a request; the cache may be gone when it returns.
    void Answer(const QString& url, const ImageFolder::Picture& picture);

    void Remember(const QString& url, const ImageFolder::Picture& picture);

    VXImageCache* const m_cache;
    const ImageCacheLimits m_limits;
    const Clock m_clock;

    QCache<QString, Remembered> m_memory;
    QHash<QString, qint64> m_failed; // when [ms since 1970, UTC]
    QNetworkAccessManager m_network;
    std::map<QString, Asked> m_asked;
    std::deque<std::pair<Waiter, QImage>> m_known; // answered from memory, in order
    std::deque<QString> m_toDownload;
    int m_downloads = 0; // under way

    ImageFolder m_folder; // used by the worker while there is one
    ImageWorker m_worker;
};
