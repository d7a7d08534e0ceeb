#pragma once

#include "http/HttpExport.h"
#include "http/ImageCacheLimits.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtGui/QImage>

#include <functional>
#include <memory>

/// Fetches pictures from the web and keeps them in memory and in a folder, both bounded, the one not used
/// for longest out first. PNG, JPEG, GIF (its first picture), BMP, ICO (its largest) and SVG without
/// references are taken, others refused. Disk and decoding have a thread of their own. GUI thread.
class TL_HTTP_EXPORT VXImageCache final : public QObject
{
    Q_OBJECT

public:
    /// The time [ms since 1970, UTC].
    using Clock = std::function<qint64()>;

    /// Keeps its files in `folder`, which it makes when it needs it and shares with nobody; when that cannot
    /// be, or it is empty, in a temporary folder that goes with this object. An empty `clock` is the
    /// system's.
    explicit VXImageCache(const QString& folder, const ImageCacheLimits& limits = ImageCacheLimits(),
                          Clock clock = Clock(), QObject* parent = nullptr);
    /// Nobody hears of what is still asked for.
    ~VXImageCache() override;

    /// Asks for the picture at an http or https address. `SigRequestImageFinished` answers later, never
    /// inside this call, and once for all requests of the address until then. A picture fetched within the
    /// last day is taken from the folder; with `refresh` it is fetched again, and an address that has just
    /// failed is asked again. When fetching fails, an older picture serves.
    void RequestImage(const QString& url, bool refresh);

    /// The same for one caller: `done` gets the picture, a null one when it cannot be had, unless `context`
    /// is gone by then. Not inside this call; no signal.
    void FetchImage(const QString& url, QObject* context, std::function<void(const QImage&)> done);

    /// Lets go of what callers gave with what they asked for so far: nobody hears of it any more. For a
    /// client that is about to unload the code of its callers.
    void DropRequests();

    /// What the client provides through `Provided<VXImageCache>`; while nothing is, one with a temporary
    /// folder. Never null.
    static VXImageCache* Instance();

    static VXImageCache* Provided() noexcept;
    static void Provide(VXImageCache* cache) noexcept;

Q_SIGNALS:
    /// `strUrl` is the address as it was asked for. `strLocal` is a PNG file that is there at least until
    /// the receivers return; empty when it did not succeed.
    void SigRequestImageFinished(bool bSucceed, const QString& strUrl, const QString& strLocal);

private:
    class Private;
    std::unique_ptr<Private> d;
};
