#include "WebEngineDownload.h"

#include <QtCore/QFileInfo>
#include <QtWebEngineWidgets/QWebEngineDownloadItem>

namespace {

constexpr int ShorterThanAnnounced = 38; // the engine knows it, its enumeration does not

} // namespace

WebEngineDownload::WebEngineDownload(QWebEngineDownloadItem* item, QObject* parent) : IDownload(parent)
{
    Follow(item);
}

WebEngineDownload::~WebEngineDownload()
{
    for (const auto& item : qAsConst(m_items)) {
        delete item;
    }
}

QString WebEngineDownload::GetFileName() const
{
    return m_item ? m_item->downloadFileName() : QString();
}

QUrl WebEngineDownload::GetUrl() const
{
    return m_item ? m_item->url() : QUrl();
}

QString WebEngineDownload::GetPath() const
{
    return m_path;
}

void WebEngineDownload::Accept(const QString& path)
{
    m_path = path;
    Start();
}

void WebEngineDownload::Cancel()
{
    if (m_item) {
        m_item->cancel();
    }
}

bool WebEngineDownload::IsAccepted() const noexcept
{
    return !m_path.isEmpty();
}

void WebEngineDownload::GoOn(QWebEngineDownloadItem* item)
{
    if (m_item) {
        m_item->disconnect(this);
    }
    Follow(item);
    Start();
}

void WebEngineDownload::Follow(QWebEngineDownloadItem* item)
{
    m_item = item;
    m_items << item;
    connect(item, &QWebEngineDownloadItem::downloadProgress, this, &IDownload::SigProgress);
    connect(item, &QWebEngineDownloadItem::finished, this,
            [this] { End(m_item->state() == QWebEngineDownloadItem::DownloadCompleted, QString()); });
    // The engine does not call one finished that broke off: it could be resumed.
    connect(item, &QWebEngineDownloadItem::stateChanged, this,
            [this](QWebEngineDownloadItem::DownloadState state) {
                if (state == QWebEngineDownloadItem::DownloadInterrupted) {
                    End(false, GetReason());
                }
            });
}

void WebEngineDownload::End(bool ok, const QString& error)
{
    m_item->disconnect(this);
    if (!error.isEmpty()) {
        m_item->cancel(); // and remove what there is of the file
    }
    Q_EMIT SigFinished(ok, error);
    deleteLater();
}

void WebEngineDownload::Start()
{
    const QFileInfo info(m_path);
    m_item->setDownloadDirectory(info.absolutePath());
    m_item->setDownloadFileName(info.fileName());
    m_item->accept();
}

QString WebEngineDownload::GetReason() const
{
    switch (static_cast<int>(m_item->interruptReason())) {
    case QWebEngineDownloadItem::FileNoSpace:
        return tr("the disk is full.");
    case QWebEngineDownloadItem::FileAccessDenied:
    case QWebEngineDownloadItem::FileBlocked:
        return tr("this folder cannot be written to.");
    case QWebEngineDownloadItem::FileNameTooLong:
        return tr("the name is too long.");
    case QWebEngineDownloadItem::FileTooLarge:
        return tr("the file is too large for this disk.");
    case QWebEngineDownloadItem::FileVirusInfected:
    case QWebEngineDownloadItem::FileSecurityCheckFailed:
        return tr("a security check refused it.");
    case QWebEngineDownloadItem::FileFailed:
    case QWebEngineDownloadItem::FileTransientError:
    case QWebEngineDownloadItem::FileTooShort:
    case QWebEngineDownloadItem::FileHashMismatch:
        return tr("the file could not be written.");
    case QWebEngineDownloadItem::ServerUnauthorized:
    case QWebEngineDownloadItem::ServerForbidden:
        return tr("the site does not allow it.");
    case QWebEngineDownloadItem::ServerCertProblem:
        return tr("the connection is not safe.");
    case QWebEngineDownloadItem::ServerFailed:
    case QWebEngineDownloadItem::ServerBadContent:
        return tr("the site reported an error.");
    case QWebEngineDownloadItem::NetworkFailed:
    case QWebEngineDownloadItem::NetworkTimeout:
    case QWebEngineDownloadItem::NetworkDisconnected:
    case QWebEngineDownloadItem::NetworkServerDown:
    case QWebEngineDownloadItem::ServerUnreachable:
    case ShorterThanAnnounced:
        return tr("the connection broke off.");
    default:
        return tr("it broke off for an unknown reason.");
    }
}
