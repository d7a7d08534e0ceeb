#pragma once

#include "pages/IPageFactory.h"

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QString>

#include <memory>

class QWebEngineDownloadItem;
class QWebEngineProfile;
class WebEngineDownload;

/// Pages drawn by Qt WebEngine, all in one profile that lives in a folder of the user's own (cookies,
/// cache, storage), so that no user sees what another left behind. Delete it after the last page and
/// before the QApplication.
class WebEnginePageFactory final : public IPageFactory
{
    Q_OBJECT

public:
    /// Makes `folder` if it does not exist. `language` is the one that pages are told the user reads, such as
    /// "en" or "zh_CN".
    WebEnginePageFactory(const QString& folder, const QString& language, QObject* parent = nullptr);
    ~WebEnginePageFactory() override;

    std::unique_ptr<ITabPage> CreatePage(QWidget* parent) override;
    void SetLanguage(const QString& language) override;
    bool ClearData() override;

private:
    void HandleDownload(QWebEngineDownloadItem* item);

    QString m_folder;
    std::unique_ptr<QWebEngineProfile> m_profile;
    QHash<quint32, QPointer<WebEngineDownload>> m_downloads; // by the engine's number, while they go on
};
