#pragma once

#include "browser/MainWindowServices.h"
#include "browser/TabRecord.h"
#include "look/Theme.h"

#include "frame-core/IBrowserMain.h"
#include "frame-data/ITabOpener.h"

#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtWidgets/QMainWindow>

#include <functional>
#include <memory>
#include <optional>

class MainWindowPrivate;
class NoticeBar;
class QAction;

/// The client's window: tab strip, toolbar and pages. Tab 0 is the home tab; it is always there, cannot be
/// closed or moved, and nothing stands before it. Its maker provides it as `IBrowserMain` and
/// `ITabOpener`. GUI thread.
class MainWindow final : public QMainWindow, public IBrowserMain, public ITabOpener
{
    Q_OBJECT

public:
    explicit MainWindow(const MainWindowServices& services, QWidget* parent = nullptr);
    ~MainWindow() override;

    int GetTabCount() const override;
    void SelectTab(int index) override;
    IBrowserTab* GetTab(int index) const override;
    QWidget* GetMainWidget() const override;

    void OpenPlugin(const PluginOpenInfo& info, int index) override;
    void OpenUrl(const TabOpenInfo& info, int index) override;

    /// While on, everything opened through `OpenPlugin` and `OpenUrl` stays unloaded until it is selected,
    /// and does not come to the front even when asked to. For a start after repeated crashes. What the user
    /// opens in the window itself loads as usual.
    void SetOpenDelayed(bool on);

    /// How many tabs of a set that is being reopened load without being selected. Each page takes a share of
    /// a second of the processor and a process of its own, so ten, the size of a day's work, are soon all
    /// there, while a thousand would keep the user waiting for minutes.
    static constexpr int ReopenedAtOnce = 10;
    /// How long they let the page in front go first [ms].
    static constexpr int FrontGoesFirst = 2000;
    /// Tells whether an opening brings back a tab of the set that is being reopened, by the router URL that
    /// the new tab has: the tab's record, whose title and icon it shows until the page gives its own. Empty
    /// for a tab that does not belong to the set. Asked once for each opening.
    using TabClaim = std::function<std::optional<TabRecord>(const QString& routerUrl)>;
    /// Until `EndReopening`, tabs that `claim` knows stay unloaded. Then the tab that is in front by the next
    /// turn of the event loop loads first and the first `ReopenedAtOnce` of the set follow one by one; the
    /// rest stay unloaded until they are selected. A tab that is delayed anyway, or is to come to the front,
    /// does not count. All other openings work as usual.
    void BeginReopening(const TabClaim& claim);
    void EndReopening();

    /// What all tabs are, the home tab first, with the title and the icon that they show. Cheap: shares its
    /// memory with the window until a tab changes.
    QVector<TabRecord> GetTabRecords() const;

    /// Whether the tab still waits for its first selection. False for an index out of range.
    bool IsTabDelayed(int index) const;

    int GetCurrentTab() const noexcept;
    /// What the address bar shows for the tab; empty for home and start page.
    QString GetTabAddress(int index) const;
    /// Closes the tab without asking. The home tab and an index out of range are ignored.
    void CloseTab(int index);
    /// Moves a tab; neither from nor to the home tab's place.
    void MoveTab(int from, int to);
    /// A blank tab in front, with the address bar ready for typing.
    void OpenStartTab();

    /// Bars between toolbar and page, for the whole client. Owned by the window.
    NoticeBar* GetNoticeBar() const noexcept;

    /// Adds an entry to the menu, above "Log out". Not owned; text and retranslation are the caller's.
    void AddMenuAction(QAction* action);
    /// The same for one that opens tabs, below "Reopen closed tab".
    void AddTabAction(QAction* action);

    /// Asked when the user closes the window or chooses Quit: true lets the window close; false leaves it
    /// as it is and announces `SigQuitRequested`. Without a guard the window closes.
    void SetCloseGuard(const std::function<bool()>& guard);

    /// Removes all tabs but the home tab, without a signal for each and without a place in "reopen closed
    /// tab". For the end of the session; the window opens nothing afterwards.
    void CloseAllTabs();

    /// Whether any tab is loading.
    bool IsLoading() const noexcept;

    /// What the menu shows as chosen; for a choice made elsewhere. No signal.
    void SetTheme(Theme theme);
    void SetLanguage(const QString& language);

Q_SIGNALS:
    /// `url` and `routerUrl` may be empty. `type` is one of `TabType`.
    void SigTabOpened(int index, const QString& url, const QString& routerUrl, int type, bool delayed);
    void SigTabSelected(int index);
    /// `index` is where the tab was.
    void SigTabClosed(int index);
    void SigTabMoved(int from, int to);
    /// Address, title or icon.
    void SigTabChanged(int index);
    void SigPageLoaded(int index, const QString& url, bool ok);
    /// The last loading tab has finished.
    void SigIdle();
    void SigLogOutRequested();
    void SigQuitRequested();
    void SigThemeChosen(Theme theme);
    void SigLanguageChosen(const QString& language);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    friend class MainWindowPrivate;
    std::unique_ptr<MainWindowPrivate> d; // null while the window is being constructed
};
