#pragma once

#include "pages/ITabPage.h"

#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

class IDownload;
class QWidget;

/// Makes the pages of the tabs; decides what draws them. Outlives all of its pages. GUI thread.
class IPageFactory : public QObject
{
    Q_OBJECT

public:
    ~IPageFactory() override = default;

    /// An empty page; never null. `parent` becomes the parent of the page's widget.
    virtual std::unique_ptr<ITabPage> CreatePage(QWidget* parent) = 0;

    /// The language that pages are told the user reads, such as "en" or "zh_CN"; from the next request on.
    virtual void SetLanguage(const QString& language) = 0;

    /// Forgets cookies and visited links at once; the cache and whatever else pages stored, before the first
    /// page of the next start. False if the latter cannot be promised.
    [[nodiscard]] virtual bool ClearData() = 0;

Q_SIGNALS:
    /// A page wants to save a file. If no receiver accepts the download during the signal, it is cancelled.
    void SigDownloadRequested(IDownload* download);
    /// A page shows a notification, as the user has allowed it to. Texts are plain text.
    void SigNotification(const QUrl& origin, const QString& title, const QString& text);

protected:
    explicit IPageFactory(QObject* parent = nullptr) : QObject(parent) {}
    Q_DISABLE_COPY(IPageFactory)
};
