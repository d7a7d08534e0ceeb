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
    /// After a connection broke off, the engine asks the server again, as an item of the same number. That
    /// one is saved where the user wanted the first.
    void GoOn(QWebEngineDownloadItem* item);

private:
    void Follow(QWebEngineDownloadItem* item);
    void Start();
    void End(bool ok, const QString& error);
    QString GetReason() const;

    QPointer<QWebEngineDownloadItem> m_item;
    // All of them until the end: the engine forgets a number when it deletes the first item of that number.
    QVector<QPointer<QWebEngineDownloadItem>> m_items;
    QString m_path;
};
