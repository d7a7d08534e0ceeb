#pragma once

#include "pages/PageFailure.h"
#include "pages/PermissionRequest.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtGui/QIcon>

#include <memory>

class QWidget;

/// Shows a web page in a tab. The tab owns it and deletes it with its widget. It loads only http and https,
/// whatever it is asked for, and opens no window of its own. GUI thread.
class ITabPage : public QObject
{
    Q_OBJECT

public:
    enum class NewTabKind
    {
        Foreground,
        Background
    };

    ~ITabPage() override = default;

    /// The widget that shows the page; owned by this object, whatever parent it is given.
    virtual QWidget* GetWidget() = 0;

    /// Starts to load and returns at once.
    virtual void Load(const QUrl& url) = 0;
    virtual void Reload() = 0;
    virtual void Stop() = 0;
    virtual void Back() = 0;
    virtual void Forward() = 0;
    virtual bool CanGoBack() const = 0;
    virtual bool CanGoForward() const = 0;

    /// The address shown, or being loaded; empty while there is none.
    virtual QUrl GetUrl() const = 0;
    /// Empty while the page has none.
    virtual QString GetTitle() const = 0;
    virtual bool IsLoading() const = 0;

    /// Searches on from the last hit; an empty text ends the search. Answered by `SigFound`.
    virtual void Find(const QString& text, bool backward) = 0;
    /// 1.0 is the page's own size.
    virtual void SetZoom(double factor) = 0;
    virtual double GetZoom() const = 0;
    virtual void LeaveFullScreen() = 0;

    /// The user wants to close the page. Answered by `SigCloseRequested`, at once or when the page, which may
    /// ask the user, agrees or does not respond; not answered if the user stays.
    virtual void RequestClose() { Q_EMIT SigCloseRequested(); }

Q_SIGNALS:
    void SigUrlChanged(const QUrl& url);
    void SigTitleChanged(const QString& title);
    /// `url` is where the icon came from, `icon` may be null while it is being fetched.
    void SigIconChanged(const QUrl& url, const QIcon& icon);
    void SigLoadStarted();
    /// From 0 to 100.
    void SigProgress(int percent);
    /// Every `SigLoadStarted` is followed by one of these. Not ok also when the load was stopped or turned
    /// into a download; only a page that could not be loaded is announced by `SigFailed` in addition.
    void SigLoadFinished(bool ok);
    void SigFailed(const PageFailure& failure);
    /// After a `SigFailed`: the next load has brought something to see.
    void SigContentArrived();
    /// The process that draws the page is gone; `Reload` starts another.
    void SigRendererDied();
    /// Whether back and forward are possible may have changed.
    void SigHistoryChanged();
    /// The page wants a tab of its own for `page`, which is already loading. A receiver takes it out of the
    /// pointer; if none does, it is deleted after the signal.
    void SigNewTabRequested(const std::shared_ptr<std::unique_ptr<ITabPage>>& page,
                            ITabPage::NewTabKind kind);
    /// The page asks to be closed (it is one that a page opened), or answers `RequestClose`.
    void SigCloseRequested();
    void SigPermissionRequested(const PermissionRequest& request);
    /// The page leads to an address that another program handles (mailto: and the like).
    void SigExternalRequested(const QUrl& url);
    /// The page leads to an address that this client does not open.
    void SigBlocked(const QUrl& url);
    void SigFullScreenRequested(bool on);
    /// The number of hits of the last `Find`.
    void SigFound(int count);
    /// The address under the mouse; empty when there is none.
    void SigLinkHovered(const QString& address);

protected:
    explicit ITabPage(QObject* parent = nullptr) : QObject(parent) {}
    Q_DISABLE_COPY(ITabPage)
};
