#pragma once

#include "InputHold.h"
#include "WidgetPlace.h"
#include "settings/SettingsPageEntry.h"

#include "frame-core/SettingItemBaseWidget.h"

#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <optional>

class HttpManagerProxy;
class QLabel;
class QScrollArea;
class QTimer;
class SaveStatus;

/// One page with its heading and with what becomes of the user's changes on it. Makes the page, and makes it
/// anew from what is stored where a page cannot follow by itself: another scale, another language, another
/// search word. No change on its way and no input that waits gets lost by that. GUI thread.
class SettingsPageArea final : public QWidget
{
    Q_OBJECT

public:
    /// `calls` is not owned and outlives this. `keyword` is what the user looks for.
    SettingsPageArea(const SettingsPageEntry& entry, HttpManagerProxy* calls, const QString& keyword,
                     QWidget* parent = nullptr);
    ~SettingsPageArea() override;

    const SettingsPageEntry& GetEntry() const noexcept { return m_entry; }
    SettingItemBaseWidget* GetPage() const noexcept { return m_page; }

    /// What the user looks for; empty: nothing.
    void SetKeyword(const QString& keyword);
    /// Makes a page anew that shows what was kept, for want of the gateway.
    void LoadIfStale();
    /// Where the page does not follow the scale or the language by itself, makes it anew.
    void FollowSurroundings();

    /// Whether a change is on its way, or input waits for its turn.
    bool IsBusy() const noexcept;
    /// Whether code of the page is running on account of input, such as while it has a dialog open.
    bool IsPageDealing() const noexcept { return m_hold.IsPageDealing(); }
    /// Whether the page shows a change that could not be saved.
    bool IsUnsaved() const noexcept;
    /// Tells the page that it is about to go; it may then have a change on its way.
    void SaveData();

Q_SIGNALS:
    /// Not busy any more.
    void SigSettled();

protected:
    void changeEvent(QEvent* event) override;

private:
    enum class Reason
    {
        First,
        Surroundings, ///< scale, language, search word
        LoadAgain     ///< the user wants what is stored
    };

    void MakeSoon(Reason reason);
    void TryToMake();
    void Make();
    void TakeSaved();
    void TakeFailed();
    void TakeInputLost();
    void TakeBusy(bool busy);
    void TakeStart(quint64 call, bool changes);
    void HandleServedFromCache(quint64 call);
    void TakeEnd(quint64 call);
    void ReleaseSoon();
    void Release();
    void Adjust();

    const SettingsPageEntry m_entry;
    InputHold m_hold;
    SaveStatus* m_status;
    QLabel* m_title;
    QScrollArea* m_scroll;
    QWidget* m_sheet; ///< the page with its margins
    QTimer* m_makeTimer;
    QTimer* m_keywordTimer;
    QPointer<SettingItemBaseWidget> m_page;
    QString m_keyword;
    QString m_madeKeyword; ///< the one that the page was made with
    QString m_code;        ///< of the last change that failed
    QString m_description;
    QSet<quint64> m_loading;                 ///< what the page asked for while it was made
    std::optional<WidgetPlace> m_focusPlace; ///< where the focus was in the page before
    Reason m_reason = Reason::First;
    QSet<quint64> m_reads; ///< what the page reads: this, and what it asks for on account of input
    bool m_stale = false;  ///< the page shows what was kept, and can be changed by nobody
    bool m_making = false;
    bool m_saved = false; ///< a change is saved, and what waited then has had no outcome yet
};
