#include "browser/WebEngineDownload.h"

#include <QtCore/QFileInfo>
#include <QtWebEngineWidgets/QWebEngineDownloadItem>

WebEngineDownload::WebEngineDownload(QWebEngineDownloadItem* item) : IDownload(item), m_item(item)
{
    connect(item, &QWebEngineDownloadItem::downloadProgress, this, &IDownload::SigProgress);
    connect(item, &QWebEngineDownloadItem::finished, this, [this] {
        const bool ok = m_item->state() == QWebEngineDownloadItem::DownloadCompleted;
        const bool cancelled = m_item->state() == QWebEngineDownloadItem::DownloadCancelled;
        Q_EMIT SigFinished(ok, ok || cancelled ? QString() : m_item->interruptReasonString());
        m_item->deleteLater();
    });
}

QString WebEngineDownload::GetFileName() const
{
    return m_item->downloadFileName();
}

QUrl WebEngineDownload::GetUrl() const
{
    return m_item->url();
}

QString WebEngineDownload::GetPath() const
{
    return m_path;
}

void WebEngineDownload::Accept(const QString& path)
{
    m_path = path;
    const QFileInfo info(path);
    m_item->setDownloadDirectory(info.absolutePath());
    m_item->setDownloadFileName(info.fileName());
    m_item->accept();
}

void WebEngineDownload::Cancel()
{
    m_item->cancel();
}

bool WebEngineDownload::IsAccepted() const noexcept
{
    return !m_path.isEmpty();
}
