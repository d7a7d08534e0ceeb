#include "webengine/WebEnginePageFactory.h"

#include "RequestGate.h"
#include "WebEngineDownload.h"
#include "WebEnginePage.h"
#include "WebEngineTabPage.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtWebEngineCore/QWebEngineCookieStore>
#include <QtWebEngineCore/QWebEngineNotification>
#include <QtWebEngineWidgets/QWebEngineDownloadItem>
#include <QtWebEngineWidgets/QWebEngineProfile>
#include <QtWebEngineWidgets/QWebEngineSettings>

namespace {

const QString StorageFolder = QStringLiteral("storage");
const QString CacheFolder = QStringLiteral("cache");
/// A file that asks for both to be emptied before they are used.
const QString ClearMark = QStringLiteral("clear-at-start");

void Restrict(QWebEngineSettings* settings)
{
    settings->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
    settings->setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, false);
    settings->setAttribute(QWebEngineSettings::JavascriptCanAccessClipboard, false);
    settings->setAttribute(QWebEngineSettings::JavascriptCanPaste, false);
    settings->setAttribute(QWebEngineSettings::PluginsEnabled, false);
    settings->setAttribute(QWebEngineSettings::PdfViewerEnabled, false);
    settings->setAttribute(QWebEngineSettings::ScreenCaptureEnabled, false);
    settings->setAttribute(QWebEngineSettings::AllowRunningInsecureContent, false);
    settings->setAttribute(QWebEngineSettings::AllowGeolocationOnInsecureOrigins, false);
    settings->setAttribute(QWebEngineSettings::AllowWindowActivationFromJavaScript, false);
    settings->setAttribute(QWebEngineSettings::HyperlinkAuditingEnabled, false);
    settings->setAttribute(QWebEngineSettings::WebRTCPublicInterfacesOnly, true);
    settings->setAttribute(QWebEngineSettings::PlaybackRequiresUserGesture, true);
    // A script may open a tab when the user clicked for it, and not by itself.
    settings->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, false);
    settings->setAttribute(QWebEngineSettings::FocusOnNavigationEnabled, false);
    settings->setAttribute(QWebEngineSettings::FullScreenSupportEnabled, true);
    // What the engine's error page says is how the tab learns the reason; the user sees the tab's own.
    settings->setAttribute(QWebEngineSettings::ErrorPageEnabled, true);
    // Unknown schemes keep the engine's policy: after a click it asks the page, which refuses and has the tab
    // ask the user.
}

} // namespace

WebEnginePageFactory::WebEnginePageFactory(const QString& folder, const QString& language, QObject* parent)
    : IPageFactory(parent), m_folder(folder)
{
    const QDir dir(folder);
    if (dir.exists(ClearMark)) {
        QDir(dir.filePath(StorageFolder)).removeRecursively();
        QDir(dir.filePath(CacheFolder)).removeRecursively();
        QFile::remove(dir.filePath(ClearMark));
    }
    dir.mkpath(StorageFolder);
    dir.mkpath(CacheFolder);
    // Only a profile with a name keeps anything; its paths say where.
    m_profile = std::make_unique<QWebEngineProfile>(QStringLiteral("tl-client"));
    m_profile->setPersistentStoragePath(dir.filePath(StorageFolder));
    m_profile->setCachePath(dir.filePath(CacheFolder));
    m_profile->setPersistentCookiesPolicy(QWebEngineProfile::AllowPersistentCookies);
    m_profile->setUrlRequestInterceptor(new RequestGate(m_profile.get()));
    Restrict(m_profile->settings());
    SetLanguage(language);

    connect(m_profile.get(), &QWebEngineProfile::downloadRequested, this,
            &WebEnginePageFactory::HandleDownload);
    m_profile->setNotificationPresenter([this](std::unique_ptr<QWebEngineNotification> notification) {
        notification->show();
        Q_EMIT SigNotification(notification->origin(), notification->title(), notification->message());
    });
}

WebEnginePageFactory::~WebEnginePageFactory()
{
    // While the profile still knows them: those that have just ended wait for the event loop to delete them.
    qDeleteAll(findChildren<WebEngineDownload*>(QString(), Qt::FindDirectChildrenOnly));
}

std::unique_ptr<ITabPage> WebEnginePageFactory::CreatePage(QWidget* parent)
{
    return std::make_unique<WebEngineTabPage>(m_profile.get(), parent);
}

bool WebEnginePageFactory::ClearData()
{
    m_profile->cookieStore()->deleteAllCookies();
    m_profile->clearAllVisitedLinks();
    // The rest is in use for as long as the profile lives. The cache could go now, but the engine clears it
    // in the background with pointers into the profile, and has crashed when the user quit meanwhile.
    QFile mark(QDir(m_folder).filePath(ClearMark));
    return mark.open(QIODevice::WriteOnly);
}

void WebEnginePageFactory::HandleDownload(QWebEngineDownloadItem* item)
{
    QPointer<WebEngineDownload>& known = m_downloads[item->id()];
    if (known) {
        known->GoOn(item);
        return;
    }
    const QPointer<WebEngineDownload> download = new WebEngineDownload(item, this);
    known = download;
    connect(download, &QObject::destroyed, this, [this, id = item->id()] { m_downloads.remove(id); });
    // The page may go while the user is asked.
    const QPointer<WebEnginePage> page(qobject_cast<WebEnginePage*>(item->page()));
    const bool mayAsk = !page || page->GetDownloadTurn().Begin(item->url(), item->downloadFileName());
    if (mayAsk) {
        Q_EMIT SigDownloadRequested(download);
    }
    const bool accepted = download && download->IsAccepted();
    if (download && !accepted) {
        download->Cancel();
        download->deleteLater();
    }
    if (page && mayAsk) {
        page->GetDownloadTurn().End(accepted);
    }
    if (page) {
        Q_EMIT page->SigBecameDownload();
    }
}

void WebEnginePageFactory::SetLanguage(const QString& language)
{
    m_profile->setHttpAcceptLanguage(language == QLatin1String("zh_CN") ? QStringLiteral("zh-CN,zh,en")
                                                                        : QStringLiteral("en"));
}
