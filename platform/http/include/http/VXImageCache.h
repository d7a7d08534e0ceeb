#pragma once

#include "http/HttpExport.h"
#include "http/ImageCacheLimits.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtGui/QImage>

#include <functional>
#include <memory>

/// Fetches pictures from the web and keeps them in memory and in a folder. Both are bounded; the picture not
/// used for longest goes first. Accepts PNG, JPEG, GIF (its first picture), BMP, ICO (its largest) and SVG
/// without references, and refuses everything else. Disk and decoding have a thread of their own. GUI thread.
class TL_HTTP_EXPORT VXImageCache final : public QObject
{
    Q_OBJECT

public:
    /// The time [ms since 1970, UTC].
    using Clock = std::function<qint64()>;

    /// Keeps its files in `folder`, which it makes when needed and shares with nobody. When it cannot make
    /// the folder, or the name is empty, it uses a temporary folder that goes with this object. An empty
    /// `clock` is the system's.
    explicit VXImageCache(const QString& folder, const ImageCacheLimits& limits = ImageCacheLimits(),
                          Clock clock = Clock(), QObject* parent = nullptr);
    /// Answers none of the open requests.
    ~VXImageCache() override;

    /// Asks for the picture at an http or https address. `SigRequestImageFinished` answers later, never
    /// inside this call, and once for all requests of the address made until then. A picture fetched within
    /// the last day comes from the folder; `refresh` fetches it again, also when the address has just failed.
    /// An older picture serves when fetching fails.
    void RequestImage(const QString& url, bool refresh);

    /// The same for one caller: `done` gets the picture, or a null one when there is none, unless `context`
    /// is gone by then. Never inside this call; emits no signal.
    void FetchImage(const QString& url, QObject* context, std::function<void(const QImage&)> done);

    /// Drops all open requests: their callers hear nothing more. For a client that is about to unload the
    /// callers' code.
    void DropRequests();

    /// The provided cache, or one with a temporary folder while none is provided. Never null.
    static VXImageCache* Instance();

    static VXImageCache* Provided() noexcept;
    static void Provide(VXImageCache* cache) noexcept;

Q_SIGNALS:
    /// `strUrl` is the address as the caller gave it. `strLocal` is a PNG file that exists at least until the
    /// receivers return; empty when the request failed.
    void SigRequestImageFinished(bool bSucceed, const QString& strUrl, const QString& strLocal);

private:
    class Private;
    std::unique_ptr<Private> d;
};
