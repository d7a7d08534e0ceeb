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
class QStackedWidget;
class SettingsPageArea;
class SettingsPageList;

/// The settings: a list of pages, the client's own and those of the modules, a search over them, and the
/// chosen page. Asks the factories for their pages each time it is shown. Closes when all changes are
/// answered; a second call closes immediately. Does not block the window below. GUI thread.
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
    /// Something has been recorded: the page that shows the record reads it again.
    void UpdateEvents();

    /// The gateway answers again: reloads pages that only show cached data.
    void LoadAgain();

    /// Shows the page if it exists now.
    void ShowPage(SettingWidgetId id);

    /// For the end of the client: closes without a question when all changes are answered; a second call
    /// closes immediately.
    void CloseAtEnd();

    void AdjustForDpi() override;
    void reject() override;

Q_SIGNALS:
    /// A page shows what it has read and accepts input; also when it was reloaded. `page` names it as
    /// `SettingsServices::savePage` does. `cached`: a cached reply stood in for the gateway's.
    void SigPageReady(const QString& page, bool cached);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    /// Choices that reload the pages.
    enum class Choice
    {
        Language,
        Scale
    };

    void WrapChoices();
    void HandleOpened(TLBaseDialog* opened);
    void Load();
    void ShowEntry(int entry);
    SettingsPageArea* AreaOf(int entry);
    void ChooseSafely(Choice choice, const std::function<void()>& choose);
    void HandleSettled();
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
    SettingsPageList* m_list;
    QStackedWidget* m_stack;
    QVector<SettingsPageEntry> m_entries;
    QVector<SettingsPageArea*> m_areas;                ///< by entry; null until first shown
    std::map<Choice, std::function<void()>> m_choices; ///< wait until everything is settled
    bool m_closing = false;                            ///< as soon as everything is settled
    bool m_atEnd = false;
    bool m_asking = false; ///< about what could not be saved
};
