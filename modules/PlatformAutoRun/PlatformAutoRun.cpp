#include "PlatformAutoRun.h"

#include "AutoRunInfoEntityPtr.h"
#include "ProcessWide.h"
#include "TLAutoRunLogic.h"

#include "frame-core/IBrowserMain.h"
#include "frame-data/PluginOpenInfo.h"
#include "frame-data/TLRouter.h"

#include <QtCore/QList>
#include <QtCore/QTimer>

namespace {

ProcessWide<PlatformAutoRun>& Holder()
{
    static ProcessWide<PlatformAutoRun> holder;
    return holder;
}

void OpenEntry(const AutoRunInfoEntity& entry)
{
    if (entry.type == AutoRunInfoEntity::TypeApp) {
        PluginOpenInfo info;
        info.activation = QStringLiteral("0");
        info.source = QStringLiteral("Workstation_Autorun");
        info.serviceCode = entry.url;
        TLRouter::OpenPlugin(info, -1);
    } else {
        constexpr bool closable = true;
        constexpr bool isDelay = false;
        constexpr bool activate = false;
        constexpr bool remember = true;
        TLRouter::OpenUrlWithNewTab(entry.url, closable, isDelay, -1, activate, QString(), remember);
    }
}

} // namespace

PlatformAutoRun* PlatformAutoRun::Instance()
{
    return Holder().Instance();
}

void PlatformAutoRun::ReleaseInstance()
{
    Holder().Release();
}

void PlatformAutoRun::OpenUrlList()
{
    QTimer::singleShot(0, this, &PlatformAutoRun::SlotOpenUrlList);
}

void PlatformAutoRun::SlotOpenUrlList()
{
    IBrowserMain* browser = IBrowserMain::GetBrowser();
    if (!browser || m_opened) {
        return;
    }
    QList<AutoRunInfoEntityPtr> entries;
    TLAutoRunLogic::Instance()->GetAutoRunList(entries);
    if (entries.isEmpty()) {
        return;
    }
    m_opened = true;

    // Every opening appends one tab, in call order, so we can count positions.
    int index = browser->GetTabCount() - 1;
    int firstIndex = 0;
    for (const AutoRunInfoEntityPtr& entry : qAsConst(entries)) {
        if (!entry->checked) {
            continue;
        }
        ++index;
        OpenEntry(*entry);
        if (entry->activeItem) {
            firstIndex = index;
        }
    }
    // Never selects position 0, the home tab's, not even when an entry landed there.
    if (firstIndex > 0) {
        browser->SelectTab(firstIndex);
    }
}
