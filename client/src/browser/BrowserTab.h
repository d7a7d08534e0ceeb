#pragma once

#include "Security.h"
#include "browser/TabRecord.h"
#include "pages/ITabPage.h"
#include "pages/PageFailure.h"

#include "frame-core/IBrowserTab.h"

#include <QtCore/QObject>
#include <QtCore/QPair>
#include <QtCore/QPointer>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtCore/QVector>
#include <QtGui/QIcon>

#include <memory>

class FindBar;
class IPageFactory;
class MessagePage;
class NoticeBar;
class QStackedWidget;

/// One tab: what it shows of itself in the strip, and the content below, which is a page, a message or a
/// widget of the client's own. A delayed tab has neither content nor widgets until `Wake`, and shows and
/// gives away the title, icon and address that it was made with, unchanged. GUI thread.
class BrowserTab final : public QObject, public IBrowserTab
{
    Q_OBJECT

public:
    /// `pages` outlives the tab.
    BrowserTab(const TabRecord& origin, IPageFactory* pages, QObject* parent = nullptr);
    ~BrowserTab() override;

    QSharedPointer<TabData> GetTabData() const override;
    QString GetRouterUrl() const override;

    /// The tab as it stands, to be made again; delayed while it still is.
    TabRecord GetOrigin() const;
    int GetType() const;
    QString GetServiceCode() const;
    bool IsClosable() const noexcept;
    QString GetTitle() const;
    QIcon GetIcon() const;
    /// The address of the page shown or being loaded; empty for a tab without page.
    QUrl GetAddress() const;
    Security GetSecurity() const;
    /// Whether an address typed by the user may be loaded here.
    bool TakesAddresses() const;
    /// Whether the tab still waits for its first selection.
    bool IsDelayed() const noexcept;
    /// Whether it stands for an app that the app list does not know, or did not know yet.
    bool IsAppUnknown() const noexcept;
    bool IsStartPage() const;
    bool HasPage() const noexcept;
    bool IsLoading() const;
    int GetProgress() const noexcept;
    bool CanGoBack() const;
    bool CanGoForward() const;
    double GetZoom() const;

    /// The router URL that a tab of this origin has while it shows the address; empty when there is none.
    static QString MakeRouterUrl(const TabRecord& origin, const QUrl& address);

    /// Makes the content, as a child of `parent`, and starts to load; the widget of a delayed tab is made
    /// by `Wake`. `content` is shown instead of a page when it is given; it is taken over.
    void Begin(QWidget* parent, QWidget* content = nullptr);
    /// The same with a page that exists and loads already.
    void Begin(QWidget* parent, std::unique_ptr<ITabPage> page);
    /// The tab is selected: a delayed one begins now.
    void Wake(QWidget* parent);
    /// Null until the content was made; owned by the tab.
    QWidget* GetWidget() const noexcept;
    /// Gives the keyboard to the content.
    void FocusContent();

    /// What the app list now says of the tab's app; for a tab that waits for its app or is delayed. Keeps
    /// title and icon that the opener gave. A tab that is not delayed begins to load.
    void SetApp(const TabRecord& origin, QWidget* parent);

    void Load(const QUrl& url);
    void Reload();
    void Stop();
    void Back();
    void Forward();
    void OpenFind();
    bool IsFindOpen() const;
    void CloseFind();
    void SetZoom(double factor);
    void LeaveFullScreen();
    /// The user wants to close the tab. `SigCloseRequested` says that it may go, mostly before this returns;
    /// a page with something to lose asks the user first.
    void RequestClose();

    /// The address of a picture to be fetched for `SetIcon`; empty when there is none, or once it was
    /// taken.
    QString TakeIconRequest();
    void SetIcon(const QIcon& icon);
    void Retranslate();

Q_SIGNALS:
    /// Address, title or icon.
    void SigChanged();
    /// Loading, progress, history, security, or the picture behind an icon.
    void SigStateChanged();
    void SigLoaded(const QUrl& url, bool ok);
    void SigNewTabRequested(const std::shared_ptr<std::unique_ptr<ITabPage>>& page,
                            ITabPage::NewTabKind kind);
    void SigCloseRequested();
    void SigFullScreenRequested(bool on);
    void SigLinkHovered(const QString& address);

private:
    enum class Message
    {
        None,
        Trouble,
        StartPage,
        NativeApp,
        Failure,
        RendererDied
    };

    void MakeContainer(QWidget* parent);
    void MakePage();
    void TakePage(std::unique_ptr<ITabPage> page);
    void ShowMessage(Message message);
    void HideMessage();
    void FillMessage();
    void FillFailure();
    void ClickMessage();
    bool IsAtOrigin() const;
    QString GetOwnTitle() const;
    QString GetIconUrl() const;
    void SetAddress(const QUrl& address);
    void UpdateData();
    void AskPermission(const PermissionRequest& request);
    void AnswerPermission(const QString& id, bool allow);
    /// What a page that is gone had asked.
    void DropQuestions();
    void AskExternal(const QUrl& url);

    TabRecord m_origin;
    IPageFactory* m_pages;
    QSharedPointer<TabData> m_data;
    QUrl m_address;
    QUrl m_shown;        // as the page said last; the address may be one that was only typed
    QString m_routerUrl; // of m_address; all tabs are asked for theirs each time they are saved
    QString m_pageTitle;
    QUrl m_pageIconUrl;
    QVector<QPair<QString, PermissionRequest>> m_permissions; // not answered yet, by their bars
    QIcon m_pageIcon;
    QIcon m_originIcon;
    QString m_iconRequest;
    PageFailure m_failure;
    Message m_message = Message::None;
    bool m_delayed = false;
    int m_progress = 0;
    double m_zoom = 1.0;

    QPointer<QWidget> m_container;
    QPointer<QWidget> m_content;
    QStackedWidget* m_stack = nullptr;
    NoticeBar* m_notices = nullptr;
    FindBar* m_find = nullptr;
    MessagePage* m_messagePage = nullptr;
    std::unique_ptr<ITabPage> m_page;
};
