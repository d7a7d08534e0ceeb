#pragma once

#include "pages/IDownload.h"

#include <QtCore/QPointer>
#include <QtCore/QVector>

class QWebEngineDownloadItem;

/// A download of the web engine. Deletes itself once it has finished.
class WebEngineDownload final : public IDownload
{
    Q_OBJECT

public:
    WebEngineDownload(QWebEngineDownloadItem* item, QObject* parent);
    ~WebEngineDownload() override;

    QString GetFileName() const override;
    QUrl GetUrl() const override;
    QString GetPath() const override;
    void Accept(const QString& path) override;
    void Cancel() override;

    bool IsAccepted() const noexcept;
    /// After a connection that broke off the engine asks the server again, as an item of the same number. It
    /// goes on where the user wanted the first.
    void GoOn(QWebEngineDownloadItem* item);

private:
    void Take(QWebEngineDownloadItem* item);
    void Start();
    void End(bool ok, const QString& error);
    QString GetReason() const;

    QPointer<QWebEngineDownloadItem> m_item;
    // All until the end: the engine forgets a number with the first item of it that is deleted.
    QVector<QPointer<QWebEngineDownloadItem>> m_items;
    QString m_path;
};
