#include "clientpages/ClientSettingFactory.h"

#include "ClientPageIds.h"
#include "clientpages/AboutPage.h"
#include "clientpages/AppearancePage.h"
#include "clientpages/LanguagePage.h"
#include "clientpages/MonitoringPage.h"
#include "clientpages/PrivacyPage.h"
#include "settings/SettingsServices.h"

ClientSettingFactory::ClientSettingFactory(const SettingsServices* services) : m_services(services) {}

ClientSettingFactory::~ClientSettingFactory() = default;

QList<SettingWidgetId> ClientSettingFactory::GetSettingWidgetIds()
{
    QList<SettingWidgetId> ids{ClientPageIds::Appearance, ClientPageIds::Language};
    if (m_services->clearBrowsingData || m_services->forgetSession || m_services->clearCachedReplies) {
        ids.append(ClientPageIds::Privacy);
    }
    if (m_services->loadEvents) {
        ids.append(ClientPageIds::Monitoring);
    }
    ids.append(ClientPageIds::About);
    return ids;
}

SettingItemBaseWidget* ClientSettingFactory::CreateSettingWidget(SettingWidgetId id)
{
    ClientPage* page = nullptr;
    if (id == ClientPageIds::Appearance) {
        page = new AppearancePage(m_services);
    } else if (id == ClientPageIds::Language) {
        page = new LanguagePage(m_services);
    } else if (id == ClientPageIds::Privacy) {
        page = new PrivacyPage(m_services);
    } else if (id == ClientPageIds::Monitoring) {
        page = new MonitoringPage(m_services);
    } else if (id == ClientPageIds::About) {
        page = new AboutPage(m_services);
    }
    m_pages.removeAll(nullptr);
    if (page != nullptr) {
        m_pages.append(page);
    }
    return page;
}

QStringList ClientSettingFactory::GetSearchKeywords(SettingWidgetId id)
{
    if (id == ClientPageIds::Appearance) {
        return AppearancePage::GetKeywords();
    }
    if (id == ClientPageIds::Language) {
        return LanguagePage::GetKeywords();
    }
    if (id == ClientPageIds::Privacy) {
        return PrivacyPage::GetKeywords();
    }
    if (id == ClientPageIds::Monitoring) {
        return MonitoringPage::GetKeywords();
    }
    if (id == ClientPageIds::About) {
        return AboutPage::GetKeywords();
    }
    return {};
}

void ClientSettingFactory::ShowChoices()
{
    for (const QPointer<ClientPage>& page : qAsConst(m_pages)) {
        if (page && qobject_cast<MonitoringPage*>(page) == nullptr) {
            page->ShowState();
        }
    }
}

void ClientSettingFactory::ShowEvents()
{
    for (const QPointer<ClientPage>& page : qAsConst(m_pages)) {
        if (auto* const monitoring = qobject_cast<MonitoringPage*>(page)) {
            monitoring->ShowState();
        }
    }
}
