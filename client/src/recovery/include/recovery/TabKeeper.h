#pragma once

#include "recovery/EarlierTabStore.h"
#include "recovery/OpenTabsRecord.h"
#include "recovery/OpenTabsWatch.h"
#include "recovery/ReopenGuard.h"
#include "recovery/TabReopening.h"
#include "recovery/TabSet.h"
#include "system/EndKind.h"

#include "browser/PictureLoader.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QThreadPool>

#include <functional>
#include <memory>

class EarlierTabsDialog;
class MainWindow;
class NoticeBoard;
class QAction;
class QuestionWatch;

/// Sees to it that no tab is lost: tells the modules when the open tabs changed and when they no longer need
/// to be kept, keeps the client's own record of them, and offers those of earlier runs. For the life of the
/// main window. GUI thread.
class TabKeeper final : public QObject
{
    Q_OBJECT

public:
    /// The modules that list this router URL keep tabs themselves: it tells them that the open tabs changed.
    static QString GetUpdateUrl();

    /// Owns none of the objects. Adds "Earlier tabs…" to the window's menu.
    TabKeeper(MainWindow* window, QuestionWatch* questions, NoticeBoard* notices,
              const PictureLoader& loadPicture, TabReopening::IsKeepersTurn isKeepersTurn,
              QObject* parent = nullptr);
    ~TabKeeper() override;

    /// Calls `mainFrameShow`, in which tabs come back, and keeps the open tabs from then on.
    void Show(bool restarted, const std::function<void()>& mainFrameShow);

    /// The client is about to end and closes what stands in the way. Closing a question that is open in
    /// `mainFrameShow` does not count as an answer, and its tabs are kept.
    void PrepareEnd();
    /// Brings all records of the open tabs to disk, and goes on. Returns when they are there, after the
    /// store's patience at the latest.
    void KeepOnDisk();
    /// Before the modules' main frame quits. A restart leaves out the tab with the router URL `ignoreUrl`;
    /// empty for none.
    void BeforeEnd(EndKind kind, const QString& ignoreUrl);
    /// After it, while the pin is still set.
    void AfterMainFrameQuit(EndKind kind);

private:
    void Keep();
    void KeepForRestart(const QString& ignoreUrl);
    void ShowEarlierTabs();
    void ShowMissing(int reopened, int expected);
    void ShowCare();
    void Retranslate();
    TabSet GetOpenTabs() const;
    bool eventFilter(QObject* watched, QEvent* event) override;

    MainWindow* m_window;
    NoticeBoard* m_notices;
    PictureLoader m_loadPicture;
    QAction* m_earlier;
    QPointer<EarlierTabsDialog> m_dialog;
    OpenTabsWatch m_watch;
    QThreadPool m_thread; // writes the record
    OpenTabsRecord m_record;
    ReopenGuard m_guard;
    TabReopening m_reopening;
    bool m_shown = false;
    bool m_ending = false;
};
