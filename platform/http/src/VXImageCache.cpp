#include "http/VXImageCache.h"

#include "VXImageCachePrivate.h"

#include <QtCore/QCoreApplication>

#include <utility>

namespace {

VXImageCache* provided = nullptr;
VXImageCache* fallback = nullptr;

} // namespace

VXImageCache::VXImageCache(const QString& folder, const ImageCacheLimits& limits, Clock clock,
                           QObject* parent)
    : QObject(parent), d(std::make_unique<Private>(this, folder, limits, std::move(clock)))
{}

VXImageCache::~VXImageCache() = default;

void VXImageCache::RequestImage(const QString& url, bool refresh)
{
    d->Request(url, refresh);
}

void VXImageCache::FetchImage(const QString& url, QObject* context, std::function<void(const QImage&)> done)
{
    d->Fetch(url, context, std::move(done));
}

void VXImageCache::DropRequests()
{
    d->DropRequests();
}

VXImageCache* VXImageCache::Instance()
{
    if (provided) {
        return provided;
    }
    if (!fallback) {
        fallback = new VXImageCache(QString());
        // The cache's thread has to end before statics are destroyed, on Windows even before `main` returns.
        qAddPostRoutine([] {
            delete fallback;
            fallback = nullptr;
        });
    }
    return fallback;
}

VXImageCache* VXImageCache::Provided() noexcept
{
    return provided;
}

void VXImageCache::Provide(VXImageCache* cache) noexcept
{
    provided = cache;
}
