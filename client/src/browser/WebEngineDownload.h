#pragma once

#include "browser/IDownload.h"

#include <QtCore/QPointer>

class QWebEngineDownloadItem;

/// A download of the web engine; belongs to the engine's item.
class WebEngineDownload final : public IDownload
{
    Q_OBJECT

public:
    explicit WebEngineDownload(QWebEngineDownloadItem* item);

    QString GetFileName() const override;
    QUrl GetUrl() const override;
    QString GetPath() const override;
    void Accept(const QString& path) override;
    void Cancel() override;

    bool IsAccepted() const noexcept;

private:
    QWebEngineDownloadItem* m_item;
    QString m_path;
};
