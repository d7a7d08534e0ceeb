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

/// One page with its heading and the status of the user's changes on it. Makes the page, and rebuilds it from
/// what is stored where a page cannot follow by itself: another scale, another language, another search word.
/// Rebuilding loses no change on its way and no held input. GUI thread.
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
    /// Rebuilds a page that shows cached data because the gateway was unreachable.
    void LoadIfStale();
    /// Rebuilds the page if it does not follow the scale or the language by itself.
    void FollowSurroundings();

    /// Whether a change is on its way, or input waits for its turn.
    bool IsBusy() const noexcept;
    /// Whether code of the page runs because of input, such as while it has a dialog open.
    bool IsPageDealing() const noexcept { return m_hold.IsPageDealing(); }
    /// Whether the page shows a change that could not be saved.
    bool IsUnsaved() const noexcept;
    /// Tells the page that it is about to go; it may then have a change on its way.
    void SaveData();

Q_SIGNALS:
    /// No longer busy.
    void SigSettled();
    /// The page shows what it has read and accepts input, the first time and after each rebuild. `cached`: a
    /// cached reply stood in for the gateway's.
    void SigReady(bool cached);

protected:
    void changeEvent(QEvent* event) override;

private:
    enum class Reason
    {
        First,
        Surroundings, ///< scale, language, search word
        LoadAgain     ///< the user wants what is stored
    };

    void BuildLayout();
    void MakeSoon(Reason reason);
    void TryToMake();
    void Make();
    void HandleSaved();
    void HandleFailed();
    void HandleInputLost();
    void HandleBusy(bool busy);
    void HandleStart(quint64 call, bool isWrite);
    void HandleServedFromCache(quint64 call);
    void HandleEnd(quint64 call);
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
    QSet<quint64> m_reads; ///< what the page reads: this, and what it asks for because of input
    bool m_stale = false;  ///< the page shows cached data, and nobody can change it
    bool m_making = false;
    bool m_saved = false; ///< a change is saved, and what waited then has had no outcome yet
};
