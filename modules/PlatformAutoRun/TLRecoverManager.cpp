#include "TLRecoverManager.h"

#include "ProcessWide.h"
#include "TLTabRecoverData.h"
#include "TabRecordKeys.h"

#include "base-ui/PackagedMsgBox.h"
#include "base/VXRouterProtocol.h"
#include "core/TLGlobalData.h"
#include "frame-core/IBrowserMain.h"
#include "frame-core/IBrowserTab.h"
#include "frame-data/IGeneralData.h"
#include "frame-data/TLUserData.h"
#include "settings-store/VXSettingManager.h"
#include "tab-container/TabData.h"
#include "tab-container/TabType.h"

#include <QtCore/QSharedPointer>

namespace {

ProcessWide<TLRecoverManager>& Holder()
{
    static ProcessWide<TLRecoverManager> holder;
    return holder;
}

QList<TabRecoverItem> ItemsOf(const IBrowserMain& browser)
{
    QList<TabRecoverItem> items;
    const int tabCount = browser.GetTabCount();
    for (int i = 1; i < tabCount; ++i) { // 0 is the home tab, which is always there
        const IBrowserTab* tab = browser.GetTab(i);
        const QSharedPointer<TabData> data = tab ? tab->GetTabData() : QSharedPointer<TabData>();
        if (!data) {
            continue;
        }
        TabRecoverItem item;
        item.routerUrl = tab->GetRouterUrl();
        if (item.routerUrl.isEmpty()) {
            continue;
        }
        item.title = data->GetTitle();
        item.icon = data->GetIconUrl();
        item.type = data->GetType();
        items.append(item);
    }
    return items;
}

QString BelongTypeOfUser()
{
    return IGeneralData::Instance()->GetUserData()->GetBelongType();
}

} // namespace

TLRecoverManager* TLRecoverManager::Instance()
{
    return Holder().Instance();
}

void TLRecoverManager::ReleaseInstance()
{
    Holder().Release();
}

void TLRecoverManager::SaveTabs()
{
    const IBrowserMain* browser = IBrowserMain::GetBrowser();
    if (!browser) {
        return;
    }
    TLTabRecoverData data;
    data.tabRecoverItems = ItemsOf(*browser);
    if (data.tabRecoverItems.isEmpty()) {
        Clear();
        return;
    }
    data.belongType = BelongTypeOfUser();
    SetValue(QString::fromUtf8(data.ToJson()));
}

bool TLRecoverManager::Recover()
{
    TLTabRecoverData data;
    data.Parse(VXSettingManager::Instance()
                   ->GetUserValue(TabRecordKeys::RecoverSection(), TabRecordKeys::RecoverField())
                   .toUtf8());
    // Before anything else, so that tabs which crash the client are offered only once.
    Clear();
    if (data.belongType != BelongTypeOfUser() || data.tabRecoverItems.isEmpty()) {
        return false;
    }
    const QMessageBox::StandardButton answer =
        PackagedMsgBox::question(tr("recover the tabs?"), nullptr, QMessageBox::Yes | QMessageBox::No);
    if (answer != QMessageBox::Yes) {
        return false;
    }
    for (const TabRecoverItem& item : qAsConst(data.tabRecoverItems)) {
        OpenItem(item);
    }
    return true;
}

void TLRecoverManager::Clear()
{
    if (!TLGlobalData::Instance()->GetPin().isEmpty()) {
        SetValue(QString());
    }
}

void TLRecoverManager::ClearSync()
{
    VXSettingManager::Instance()->SetUserValueSync(TabRecordKeys::RecoverSection(),
                                                   TabRecordKeys::RecoverField(), QString());
}

void TLRecoverManager::OpenItem(const TabRecoverItem& item)
{
    VXRouterProtocol route(item.routerUrl);
    if (item.type == TabType::WebApp || item.type == TabType::NativeApp) {
        route.With(QStringLiteral("isDelay"), QStringLiteral("1"))
            .With(QStringLiteral("title"), item.title)
            .With(QStringLiteral("icon"), item.icon);
    }
    route.Execute();
}

void TLRecoverManager::SetValue(const QString& text)
{
    VXSettingManager::Instance()->SetUserValue(TabRecordKeys::RecoverSection(), TabRecordKeys::RecoverField(),
                                               text);
}
