#include "VXImageCachePrivate.h"

#include "ImageDecoder.h"
#include "LoopbackProxyFactory.h"

#include <QtCore/QDateTime>
#include <QtCore/QLoggingCategory>

#include <algorithm>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(logImages, "tl.http.images", QtInfoMsg)

constexpr int MaxFailures = 1000; // that are remembered

// All times in [ms]. A time in the future, from before the clock was set back, is not within any span.
bool IsWithin(qint64 span, qint64 since, qint64 now)
{
    const qint64 age = now - since;
    return age >= 0 && age < span;
}

// Leaves out what may be a secret.
QString ForLog(const QString& address)
{
    const QUrl url(address);
    return url.isValid()
               ? url.toDisplayString(QUrl::RemoveUserInfo | QUrl::RemoveQuery | QUrl::RemoveFragment)
               : QStringLiteral("an invalid address");
}

} // namespace

VXImageCache::Private::Private(VXImageCache* cache, const QString& folder, const ImageCacheLimits& limits,
                               Clock clock)
    : m_cache(cache)
    , m_limits(limits)
    , m_clock(clock ? std::move(clock) : Clock(&QDateTime::currentMSecsSinceEpoch))
    , m_memory(int(limits.memorySize))
    , m_folder(folder, limits)
{
    m_network.setProxyFactory(new LoopbackProxyFactory); // owned by the network object from here on
}

VXImageCache::Private::~Private() = default;

void VXImageCache::Private::Request(const QString& url, bool refresh)
{
    Asked& asked = Ask(url);
    asked.announce = true;
    asked.refresh = asked.refresh || refresh;
}

void VXImageCache::Private::Fetch(const QString& url, QObject* context,
                                  std::function<void(const QImage&)> done)
{
    Waiter waiter{context, std::move(done)};
    const Remembered* const known = m_memory.object(url);
    if (known && IsWithin(m_limits.freshness, known->fetched, m_clock()) && m_asked.count(url) == 0) {
        m_known.emplace_back(std::move(waiter), known->image);
        QMetaObject::invokeMethod(this, &Private::AnswerKnown, Qt::QueuedConnection);
        return;
    }
    Ask(url).waiters.push_back(std::move(waiter));
}

void VXImageCache::Private::AnswerKnown()
{
    if (m_known.empty()) {
        return; // dropped meanwhile
    }
    const auto [waiter, image] = std::move(m_known.front());
    m_known.pop_front();
    if (waiter.context) {
        waiter.done(image); // may end the cache
    }
}

void VXImageCache::Private::DropRequests()
{
    m_known.clear();
    for (auto& [url, asked] : m_asked) {
        asked.waiters.clear();
    }
}

VXImageCache::Private::Asked& VXImageCache::Private::Ask(const QString& url)
{
    const auto [it, isNew] = m_asked.try_emplace(url);
    if (isNew) {
        if (ImageDownload::ToUrl(url).isEmpty()) {
            QMetaObject::invokeMethod(
                this, [this, url] { Fail(url, QStringLiteral("it is not on the web")); },
                Qt::QueuedConnection);
        } else {
            m_worker.Post([this, url, now = m_clock()]() -> ImageWorker::Completion {
                return [this, url, picture = m_folder.Load(url, now)] { OnLookedUp(url, picture); };
            });
        }
    }
    return it->second;
}

void VXImageCache::Private::OnLookedUp(const QString& url, const ImageFolder::Picture& picture)
{
    Asked& asked = m_asked.at(url);
    const qint64 now = m_clock();
    const bool settled = IsWithin(m_limits.freshness, picture.fetched, now) ||
                         (m_failed.contains(url) && IsWithin(m_limits.failureRest, m_failed.value(url), now));
    if (settled && !asked.refresh) {
        Answer(url, picture);
        return;
    }
    asked.older = picture;
    m_toDownload.push_back(url);
    StartDownloads();
}

void VXImageCache::Private::StartDownloads()
{
    while (m_downloads < m_limits.downloads && !m_toDownload.empty()) {
        const QString url = m_toDownload.front();
        m_toDownload.pop_front();
        ++m_downloads;
        Asked& asked = m_asked.at(url);
        asked.download = std::make_unique<ImageDownload>(m_network, m_limits);
        connect(asked.download.get(), &ImageDownload::SigDone, this, [this, url] { OnDownloaded(url); });
        asked.download->Start(ImageDownload::ToUrl(url));
    }
}

void VXImageCache::Private::OnDownloaded(const QString& url)
{
    const std::unique_ptr<ImageDownload> download = std::move(m_asked.at(url).download);
    --m_downloads;
    StartDownloads();
    if (!download->GetProblem().isEmpty()) {
        Fail(url, download->GetProblem());
        return;
    }
    m_worker.Post([this, url, bytes = download->GetBytes(), now = m_clock()]() -> ImageWorker::Completion {
        const QImage image = ImageDecoder::Decode(bytes, m_limits.pixels, m_limits.edge);
        if (image.isNull()) {
            return [this, url] { Fail(url, QStringLiteral("it is no picture that can be taken")); };
        }
        return [this, url, picture = m_folder.Store(url, image, now)] {
            m_failed.remove(url);
            Answer(url, picture);
        };
    });
}

void VXImageCache::Private::Fail(const QString& url, const QString& problem)
{
    const ImageFolder::Picture older = m_asked.at(url).older;
    qCWarning(logImages).noquote() << "No picture from" << ForLog(url) << '-' << problem
                                   << (older.path.isEmpty() ? "" : "- an older one serves");
    if (m_failed.size() >= MaxFailures) {
        m_failed.clear();
    }
    m_failed.insert(url, m_clock());
    Answer(url, older);
}

void VXImageCache::Private::Answer(const QString& url, const ImageFolder::Picture& picture)
{
    Remember(url, picture);
    // From here on, the address may be requested again.
    auto node = m_asked.extract(url);
    const Asked& asked = node.mapped();
    const QPointer<Private> self(this);
    for (const Waiter& waiter : asked.waiters) {
        if (self && waiter.context) {
            waiter.done(picture.image);
        }
    }
    if (self && asked.announce) {
        Q_EMIT m_cache->SigRequestImageFinished(!picture.path.isEmpty(), url, picture.path);
    }
}

void VXImageCache::Private::Remember(const QString& url, const ImageFolder::Picture& picture)
{
    if (picture.image.isNull()) {
        m_memory.remove(url);
        return;
    }
    // Small pictures cost more than they take, which limits their number.
    const qint64 least = m_limits.memorySize / std::max(1, m_limits.memoryCount);
    const qint64 cost = std::max<qint64>(picture.image.sizeInBytes(), least);
    m_memory.insert(url, new Remembered{picture.image, picture.fetched},
                    int(std::min<qint64>(cost, m_limits.memorySize)));
}
