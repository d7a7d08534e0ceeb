#pragma once

#include "settings/SettingsPageEntry.h"
#include "settings/SettingsServices.h"

#include "base-ui/TLBaseDialog.h"

#include <QtCore/QVector>

#include <functional>
#include <map>
#include <memory>

class ClientSettingFactory;
class HttpManagerProxy;
class QLabel;
class QListWidget;
class QStackedWidget;
class SettingsPageArea;
class TLLineEdit;

/// The settings: a list of pages, the client's own and those of the modules, a search over them, and the
/// chosen page. Asks the factories for their pages each time it is shown. It closes when every change has
/// been answered; asked a second time, at once. Shown without blocking the window below. GUI thread.
class SettingsDialog final : public TLBaseDialog
{
    Q_OBJECT

public:
    /// `factories` are those of the modules; they are not owned and outlive the dialog, as the provided
    /// `IHttpManager` does.
    SettingsDialog(const SettingsServices& services, const QVector<ISysSettingFactory*>& factories,
                   QWidget* parent = nullptr);
    ~SettingsDialog() override;

    /// For a choice made elsewhere, such as in the client's menu.
    void SetTheme(Theme theme);
    void SetLanguage(const QString& language);
    void SetScale(int scale);
    /// Something has been recorded: the page that shows it reads it again.
    void UpdateEvents();

    /// The gateway answers again: pages that show the last known list only are made anew.
    void LoadAgain();

    /// Shows the page if it exists now.
    void ShowPage(SettingWidgetId id);

    /// For the end of the client: closes when every change has been answered, at once when asked again, and
    /// asks nothing.
    void CloseAtEnd();

    void AdjustForDpi() override;
    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// Those that the pages are shown anew for.
    enum class Choice
    {
        Language,
        Scale
    };

    void Receive(TLBaseDialog* opened);
    void Load();
    void Search();
    void SelectPage();
    SettingsPageArea* AreaOf(int entry);
    void ChooseSafely(Choice choice, const std::function<void()>& choose);
    void TakeSettled();
    bool MayDropUnsaved(const QString& question, const QStringList& buttons);
    bool IsBusy() const;
    bool IsUnsaved() const;
    void Close();
    void Adjust();
    void Retranslate();

    SettingsServices m_services;
    QVector<ISysSettingFactory*> m_factories;
    std::unique_ptr<ClientSettingFactory> m_own;
    HttpManagerProxy* m_calls;
    TLLineEdit* m_search;
    QListWidget* m_list;
    QLabel* m_nothing;
    QStackedWidget* m_stack;
    QVector<SettingsPageEntry> m_entries;
    int m_current = -1;                                ///< the entry that is shown
    QVector<SettingsPageArea*> m_areas;                ///< by entry; null until first shown
    std::map<Choice, std::function<void()>> m_choices; ///< wait until everything is settled
    bool m_closing = false;                            ///< as soon as everything is settled
    bool m_atEnd = false;
    bool m_asking = false; ///< about what could not be saved
};
