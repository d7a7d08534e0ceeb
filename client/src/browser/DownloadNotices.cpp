#include "DownloadNotices.h"

#include "notices/NoticeBar.h"
#include "pages/IDownload.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QPointer>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrl>
#include <QtGui/QDesktopServices>

DownloadNotices::DownloadNotices(NoticeBar* bar, const AskPath& askPath, QObject* parent)
    : QObject(parent)
    , m_bar(bar)
    , m_askPath(askPath)
    , m_folder(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation))
{
    // Not every system has one; a dialog would then begin in the folder that the client was started in.
    if (!QDir(m_folder).exists()) {
        m_folder = QDir::homePath();
    }
}

void DownloadNotices::HandleDownload(IDownload* download)
{
    // Only the last part: a name from a server must not lead out of the folder.
    QString name = QFileInfo(download->GetFileName()).fileName();
    if (name.isEmpty()) {
        name = QStringLiteral("download");
    }
    const QPointer<IDownload> alive(download);
    const QString path = m_askPath(QDir(m_folder).filePath(name));
    if (!alive) {
        return;
    }
    if (path.isEmpty()) {
        download->Cancel();
        return;
    }
    m_folder = QFileInfo(path).absolutePath();
    const QString id = QStringLiteral("download/%1").arg(++m_count);
    const QString shownName = QFileInfo(path).fileName();

    connect(download, &IDownload::SigProgress, this, [this, id, shownName](qint64 received, qint64 total) {
        const QLocale locale;
        const QString text =
            total > 0
                ? tr("Downloading %1: %2 of %3")
                      .arg(shownName, locale.formattedDataSize(received), locale.formattedDataSize(total))
                : tr("Downloading %1: %2").arg(shownName, locale.formattedDataSize(received));
        m_bar->SetText(id, text);
        m_bar->SetProgress(id, total > 0 ? int(received * 100 / total) : -1);
    });
    connect(download, &IDownload::SigFinished, this,
            [this, id, path](bool ok, const QString& error) { ShowFinished(id, path, ok, error); });
    m_bar->Show(id, NoticeKind::Info, tr("Downloading %1").arg(shownName), {{tr("Cancel"), [alive] {
                                                                                 if (alive) {
                                                                                     alive->Cancel();
                                                                                 }
                                                                             }}});
    m_bar->SetProgress(id, 0);
    download->Accept(path);
}

void DownloadNotices::ShowFinished(const QString& id, const QString& path, bool ok, const QString& error)
{
    const QString name = QFileInfo(path).fileName();
    if (ok) {
        const QString folder = QFileInfo(path).absolutePath();
        m_bar->Show(
            id, NoticeKind::Info, tr("%1 was saved.").arg(name),
            {{tr("Show in folder"), [folder] { QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); }}});
    } else if (error.isEmpty()) {
        m_bar->Hide(id);
    } else {
        m_bar->Show(id, NoticeKind::Error, tr("%1 could not be saved: %2").arg(name, error));
    }
}
