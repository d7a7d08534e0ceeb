#include "TLRestartManager.h"

#include "ProcessWide.h"
#include "TLRestartRecord.h"
#include "TabRecordKeys.h"

#include "base/VXRouterProtocol.h"
#include "frame-core/IBrowserMain.h"
#include "frame-core/IBrowserTab.h"
#include "frame-data/IGeneralData.h"
#include "frame-data/TLUserData.h"
#include "settings-store/VXSettingManager.h"

namespace {

ProcessWide<TLRestartManager>& Holder()
{
    static ProcessWide<TLRestartManager> holder;
    return holder;
}

} // namespace

TLRestartManager* TLRestartManager::Instance()
{
    return Holder().Instance();
}

void TLRestartManager::ReleaseInstance()
{
    Holder().Release();
}

void TLRestartManager::Save(const QString& ignoreUrl)
{
    const IBrowserMain* browser = IBrowserMain::GetBrowser();
    if (!browser) {
        return;
    }
    TLRestartRecord record;
    const int tabCount = browser->GetTabCount();
    for (int i = 1; i < tabCount; ++i) { // 0 is the home tab, which is always there
        const IBrowserTab* tab = browser->GetTab(i);
        const QString routerUrl = tab ? tab->GetRouterUrl() : QString();
        if (!routerUrl.isEmpty() && routerUrl.compare(ignoreUrl, Qt::CaseInsensitive) != 0) {
            record.routerUrls.append(routerUrl);
        }
    }
    if (record.routerUrls.isEmpty()) {
        Clear();
        return;
    }
    record.belongType = IGeneralData::Instance()->GetUserData()->GetBelongType();
    const QString text = record.ToText();
    if (!text.isEmpty()) {
        SetValue(text);
    }
}

void TLRestartManager::Restore()
{
    const TLRestartRecord record = TLRestartRecord::FromText(VXSettingManager::Instance()->GetUserValue(
        TabRecordKeys::RestartSection(), TabRecordKeys::RestartField()));
    Clear();
    if (record.belongType != IGeneralData::Instance()->GetUserData()->GetBelongType()) {
        return;
    }
    for (const QString& routerUrl : record.routerUrls) {
        VXRouterProtocol(routerUrl).Execute();
    }
}

void TLRestartManager::Clear()
{
    SetValue(QString());
}

void TLRestartManager::SetValue(const QString& text)
{
    VXSettingManager::Instance()->SetUserValue(TabRecordKeys::RestartSection(), TabRecordKeys::RestartField(),
                                               text);
}
