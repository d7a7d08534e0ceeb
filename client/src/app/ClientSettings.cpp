#include "ClientSettings.h"

#include "ClientAppearance.h"
#include "ClientMemory.h"
#include "ClientServices.h"
#include "login/SavedSession.h"

#include "PageEngines.h"
#include "browser/MainWindow.h"
#include "monitoring/MonitorEventFile.h"
#include "pages/IPageFactory.h"
#include "settings/SettingsDialog.h"

#include "frame-core/IBusinessModule.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtWidgets/QAction>

ClientSettings::ClientSettings(MainWindow* window, IPageFactory* pages, ClientAppearance* appearance,
                               ClientServices* services, SavedSession* savedSession,
                               std::vector<LoadedModule> modules, QObject* parent)
    : QObject(parent)
    , m_window(window)
    , m_pages(pages)
    , m_appearance(appearance)
    , m_services(services)
    , m_savedSession(savedSession)
    , m_modules(std::move(modules))
    , m_action(new QAction(this))
{
    m_action->setObjectName(QStringLiteral("settings_action"));
    m_action->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_Comma));
    m_window->AddMenuAction(m_action);
    connect(m_action, &QAction::triggered, this, &ClientSettings::Show);
    connect(m_appearance, &ClientAppearance::SigLanguageChanged, this, &ClientSettings::Retranslate);
    Retranslate();
}

ClientSettings::~ClientSettings()
{
    delete m_dialog; // pages must not outlive their modules
}

void ClientSettings::Show()
{
    if (!m_dialog) {
        QVector<ISysSettingFactory*> factories;
        for (const LoadedModule& loaded : m_modules) {
            if (ISysSettingFactory* const factory = loaded.module->GetSysSettingFactory()) {
                factories.append(factory);
            }
        }
        m_dialog = new SettingsDialog(GetServices(), factories, m_window);
        m_dialog->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_dialog, &SettingsDialog::SigPageReady, this, &ClientSettings::SigPageReady);
        connect(m_dialog, &QDialog::finished, this, &ClientSettings::SigClosed);
        connect(m_appearance, &ClientAppearance::SigThemeChanged, m_dialog, &SettingsDialog::SetTheme);
        connect(m_appearance, &ClientAppearance::SigLanguageChanged, m_dialog, &SettingsDialog::SetLanguage);
        connect(m_appearance, &ClientAppearance::SigScaleChanged, m_dialog, &SettingsDialog::SetScale);
        connect(&m_services->monitor, &MonitorRecorder::SigReported, m_dialog, &SettingsDialog::UpdateEvents);
    }
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}

bool ClientSettings::IsOpen() const
{
    return m_dialog && m_dialog->isVisible();
}

void ClientSettings::LoadAgain()
{
    if (m_dialog) {
        m_dialog->LoadAgain();
    }
}

void ClientSettings::Close()
{
    if (m_dialog) {
        m_dialog->CloseAtEnd();
    }
}

SettingsServices ClientSettings::GetServices()
{
    SettingsServices services;
    services.theme = m_appearance->GetTheme();
    services.chooseTheme = [this](Theme theme) { m_appearance->ChooseTheme(theme); };
    services.scale = m_appearance->GetScale();
    services.chooseScale = [this](int scale) { m_appearance->ChooseScale(scale); };
    services.language = m_appearance->GetLanguage();
    services.chooseLanguage = [this](const QString& language) { m_appearance->ChooseLanguage(language); };
    services.clearBrowsingData = [this](const std::function<void(bool)>& done) {
        done(m_pages->ClearData());
    };
    services.hasSavedSession = [this] { return m_savedSession->HasRecord(); };
    services.forgetSession = [this](const std::function<void()>& done) { m_savedSession->Forget(done); };
    services.clearCachedReplies = [this] { m_services->http.ClearCache(); };
    services.loadEvents = [this] {
        return MonitorEventFile::Load({m_services->monitor.GetOlderFile(), m_services->monitor.GetFile()});
    };
    services.clearEvents = [this] { m_services->monitor.Clear(); };
    services.versions = {{QCoreApplication::applicationName(), QCoreApplication::applicationVersion()},
                         {QStringLiteral("Qt"), QString::fromLatin1(qVersion())}};
    const QString webEngine = PageEngines::GetVersion(PageEngines::GetBest());
    if (!webEngine.isEmpty()) {
        services.versions.append({QStringLiteral("Qt WebEngine"), webEngine});
    }
    for (const LoadedModule& loaded : m_modules) {
        services.versions.append({loaded.key, QFileInfo(loaded.file).fileName()});
    }
    services.loadGeometry = &ClientMemory::GetSettingsGeometry;
    services.saveGeometry = &ClientMemory::SetSettingsGeometry;
    services.loadPage = &ClientMemory::GetSettingsPage;
    services.savePage = &ClientMemory::SetSettingsPage;
    return services;
}

void ClientSettings::Retranslate()
{
    m_action->setText(tr("&Settings…"));
}
