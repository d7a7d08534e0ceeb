#pragma once

#include "Security.h"
#include "TabFace.h"
#include "browser/TabRecord.h"
#include "pages/ITabPage.h"
#include "pages/PageFailure.h"

#include "frame-core/IBrowserTab.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtGui/QIcon>

#include <memory>

class FindBar;
class IPageFactory;
class MessagePage;
class NoticeBar;
class PageQuestions;
class QStackedWidget;

/// One tab: what it shows of itself, and its content, which is a page, a message or a widget of the client's
/// own. A delayed tab has neither content nor widgets until `Wake`. GUI thread.
class BrowserTab final : public QObject, public IBrowserTab
{
    Q_OBJECT

public:
    /// `pages` outlives the tab.
    BrowserTab(const TabRecord& opened, IPageFactory* pages, QObject* parent = nullptr);
    ~BrowserTab() override;

    QSharedPointer<TabData> GetTabData() const override;
    QString GetRouterUrl() const override;

    /// The tab as it stands, with the title and the icon that it shows.
    const TabRecord& GetRecord() const noexcept;
    /// What opens the tab again as it stands; delayed while it still is.
    TabRecord GetReopenRecord() const;
    QIcon GetIcon() const;
    Security GetSecurity() const;
    /// Whether an address typed by the user may be loaded here.
    bool AcceptsAddresses() const;
    bool IsStartPage() const;
    bool HasPage() const noexcept;
    bool IsLoading() const;
    int GetProgress() const noexcept;
    bool CanGoBack() const;
    bool CanGoForward() const;
    double GetZoom() const;

    /// Makes the content, as a child of `parent`, and starts to load; does nothing while the tab is delayed.
    /// `content` is shown instead of a page when it is given; the tab owns it then.
    void Begin(QWidget* parent, QWidget* content = nullptr);
    /// The same with a page that exists and loads already.
    void Begin(QWidget* parent, std::unique_ptr<ITabPage> page);
    /// A delayed tab begins now.
    void Wake(QWidget* parent);
    /// Null until the tab has begun; owned by the tab.
    QWidget* GetWidget() const noexcept;
    /// Gives the keyboard to the content.
    void FocusContent();

    /// What the app list now says of the tab's app; for a tab that waits for its app or is delayed. Keeps
    /// title and icon that the opener gave. A tab that is not delayed begins to load.
    void SetApp(const TabRecord& app, QWidget* parent);

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

    /// The address of a picture to be fetched for `SetIcon`. Asked once; empty when there is none.
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
    void SetPage(std::unique_ptr<ITabPage> page);
    void HandleUrlChanged(const QUrl& url);
    void HandleLoadStarted();
    void HandleLoadFinished(bool ok);
    void HandleFailed(const PageFailure& failure);
    void HandleRendererDied();
    bool IsBroken() const noexcept;
    void ShowMessage(Message message);
    void HideMessage();
    void FillMessage();
    void ForgetPageFace();
    /// Passes on what the tab shows of itself.
    void Publish();

    IPageFactory* m_pages;
    TabFace m_face;
    QSharedPointer<TabData> m_data;
    QUrl m_shown; // as the page said last; the tab's address may be one that was only typed
    PageFailure m_failure;
    Message m_message = Message::None;
    int m_progress = 0;
    double m_zoom = 1.0;

    QPointer<QWidget> m_container;
    QPointer<QWidget> m_content;
    QStackedWidget* m_stack = nullptr;
    FindBar* m_find = nullptr;
    MessagePage* m_messagePage = nullptr;
    PageQuestions* m_questions = nullptr;
    std::unique_ptr<ITabPage> m_page;
};
