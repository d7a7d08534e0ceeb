#pragma once

#include "browser/TabRecord.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtGui/QIcon>

/// What a tab shows of itself: what its opener gave, until its page says something of its own. GUI thread.
class TabFace final
{
    Q_DECLARE_TR_FUNCTIONS(TabFace)

public:
    explicit TabFace(const TabRecord& opened);

    /// The tab as it stands, with the title and the icon that it shows.
    const TabRecord& GetRecord() const noexcept;
    /// What opens it again as it stands: title and icon only as opener or page gave them.
    TabRecord GetReopenRecord() const;
    QIcon GetIcon() const;

    void SetDelayed(bool delayed);
    /// What the app list says now. Keeps the title and icon that the opener gave, and all that was known of
    /// an app that the list has lost.
    void SetApp(const TabRecord& app);
    /// Of the page that is shown or being loaded.
    void SetAddress(const QUrl& address);
    void SetPageTitle(const QString& title);
    /// `icon` is the picture at the address.
    void SetPageIcon(const QUrl& url, const QIcon& icon);
    /// Again in the present language.
    void Retranslate();

    /// The address of the picture that `SetOpenedIcon` waits for. Asked once; empty when there is none.
    QString TakeIconRequest();
    /// The picture at the address that opener or app list gave.
    void SetOpenedIcon(const QIcon& icon);

private:
    bool IsAsOpened() const;
    QString GetOwnTitle() const;
    QString MakeTitle() const;
    QString MakeIconUrl() const;
    void Update();

    TabRecord m_opened;
    TabRecord m_record;
    QString m_pageTitle;
    QUrl m_pageIconUrl;
    QIcon m_pageIcon;
    QIcon m_openedIcon;
    QString m_iconRequest;
};
