#include "ReopeningTest.h"

#include "ClientRoutes.h"
#include "TabSetText.h"

#include "base-ui/PackagedMsgBox.h"
#include "base/VXRouterProtocol.h"
#include "settings-store/VXSettingManager.h"

ReopeningTest::ReopeningTest()
{
    AddTabRoutes(m_router);
    for (const char* url : {"tl://autorun/update", "tl://autorun/clean", "tl://autorun/restart/update"}) {
        m_router.AddRoute(QLatin1String(url), [this](const VXRouterProtocol& route) {
            m_told.append(route.GetUrl());
            return true;
        });
    }
}

ReopeningTest::~ReopeningTest() = default;

void ReopeningTest::LeaveBehind(const TabSet& tabs)
{
    LeaveBehind(TabSetText::Write(tabs));
}

void ReopeningTest::LeaveBehind(const QString& text)
{
    VXSettingManager::Instance()->SetUserValue(QStringLiteral("CLIENT"), QStringLiteral("RUNNING_TABS"),
                                               text);
}

void ReopeningTest::DieTwice()
{
    VXSettingManager::Instance()->SetUserValue(QStringLiteral("CLIENT"), QStringLiteral("REOPEN_DEATHS"),
                                               QStringLiteral("2"));
}

void ReopeningTest::Reopen(const QVector<TabRecord>& tabs)
{
    for (const TabRecord& tab : tabs) {
        VXRouterProtocol(tab.routerUrl).Execute();
    }
}

void ReopeningTest::Offer(const QVector<TabRecord>& tabs)
{
    if (PackagedMsgBox::question(QStringLiteral("recover the tabs?")) == QMessageBox::Yes) {
        Reopen(tabs);
    }
}

QVector<EarlierTabStore::Fate> ReopeningTest::GetFates()
{
    QVector<EarlierTabStore::Fate> fates;
    const QVector<EarlierTabStore::Set> sets = EarlierTabStore::GetSets();
    for (const EarlierTabStore::Set& set : sets) {
        fates.append(set.fate);
    }
    return fates;
}

int ReopeningTest::CountDelayed() const
{
    int delayed = 0;
    for (int index = 0; index < m_window->GetTabCount(); ++index) {
        delayed += m_window->IsTabDelayed(index) ? 1 : 0;
    }
    return delayed;
}

QVector<TabRecord> ReopeningTest::GetOpen() const
{
    QVector<TabRecord> tabs;
    for (int index = 1; index < m_window->GetTabCount(); ++index) {
        const TabData& data = GetData(index);
        tabs.append({GetRouterUrl(index), data.GetTitle(), data.GetIconUrl(), data.GetType()});
    }
    return tabs;
}
