#include "TLRecoverManager.h"

#include "base/Provided.h"
#include "core/TLGlobalData.h"
#include "frame-core/IBrowserMain.h"
#include "frame-core/IBrowserTab.h"
#include "frame-data/AsyncInfoManager.h"
#include "frame-data/IGeneralData.h"
#include "frame-data/TLUserData.h"
#include "settings-store/VXSettingManager.h"
#include "tab-container/TabData.h"
#include "tab-container/TabType.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <vector>

namespace {

class Tab final : public IBrowserTab
{
public:
    explicit Tab(int number)
        : m_data(QSharedPointer<TabData>::create(
              number % 3 == 0 ? TabType::WebApp : TabType::WebPage,
              QStringLiteral("Order number %1, to be shipped").arg(number),
              QStringLiteral("https://shop.example.test/icons/%1.png").arg(number)))
        , m_routerUrl(QStringLiteral("tl://browser/open?url=https%3A%2F%2Fshop.example.test%2Forders%2F%1")
                          .arg(number))
    {}

    QSharedPointer<TabData> GetTabData() const override { return m_data; }
    QString GetRouterUrl() const override { return m_routerUrl; }

private:
    QSharedPointer<TabData> m_data;
    QString m_routerUrl;
};

class Browser final : public IBrowserMain
{
public:
    explicit Browser(int tabCount)
    {
        for (int i = 0; i < tabCount; ++i) {
            m_tabs.push_back(std::make_unique<Tab>(i));
        }
    }

    int GetTabCount() const override { return static_cast<int>(m_tabs.size()); }
    void SelectTab(int) override {}
    IBrowserTab* GetTab(int index) const override { return m_tabs[static_cast<size_t>(index)].get(); }
    QWidget* GetMainWidget() const override { return nullptr; }

private:
    std::vector<std::unique_ptr<Tab>> m_tabs;
};

class GeneralData final : public IGeneralData
{
public:
    GeneralData() { m_user.Set(QStringLiteral("demo"), QStringLiteral("merchant")); }

    AsyncInfoManager* GetAsyncInfoManager() override { return &m_asyncInfo; }
    TLUserData* GetUserData() override { return &m_user; }

private:
    AsyncInfoManager m_asyncInfo;
    TLUserData m_user;
};

/// A client with the home tab and `tabCount` others, and a settings store on disk.
class Client final
{
public:
    explicit Client(int tabCount) : m_browser(tabCount + 1)
    {
        TLGlobalData::Instance()->SetUser(QStringLiteral("demo"), QStringLiteral("merchant"));
        if (!VXSettingManager::Instance()->Open(m_folder.filePath(QStringLiteral("settings.db")))) {
            qFatal("the settings store cannot be opened");
        }
    }
    ~Client() { VXSettingManager::Instance()->Close(); }

    /// Call between two measurements: gives a tab another title, because the store skips unchanged values,
    /// and waits until the store's own thread is idle.
    void ChangeATitle()
    {
        m_browser.GetTab(1)->GetTabData()->SetTitle(QString::number(++m_titles));
        VXSettingManager::Instance()->Flush();
    }

private:
    Q_DISABLE_COPY(Client)

    QTemporaryDir m_folder;
    Browser m_browser;
    GeneralData m_generalData;
    Provided<IBrowserMain> m_providedBrowser{&m_browser};
    Provided<IGeneralData> m_providedGeneralData{&m_generalData};
    int m_titles = 0;
};

/// The same record from the same tabs to the same store, with Qt's JSON classes instead of the record
/// classes.
void SaveTabsByHandOnce()
{
    const IBrowserMain* browser = IBrowserMain::GetBrowser();
    QJsonArray items;
    for (int i = 1; i < browser->GetTabCount(); ++i) {
        const IBrowserTab* tab = browser->GetTab(i);
        const QSharedPointer<TabData> data = tab->GetTabData();
        const QString routerUrl = tab->GetRouterUrl();
        if (!data || routerUrl.isEmpty()) {
            continue;
        }
        items.append(QJsonObject{{QStringLiteral("icon"), data->GetIconUrl()},
                                 {QStringLiteral("routerUrl"), routerUrl},
                                 {QStringLiteral("title"), data->GetTitle()},
                                 {QStringLiteral("type"), data->GetType()}});
    }
    const QJsonObject record{
        {QStringLiteral("belongType"), IGeneralData::Instance()->GetUserData()->GetBelongType()},
        {QStringLiteral("tabRecoverItems"), items}};
    VXSettingManager::Instance()->SetUserValue(
        QStringLiteral("USER_SETTING_RECOVER_SECTION"), QStringLiteral("USER_SETTING_RECOVER_FIELD1"),
        QString::fromUtf8(QJsonDocument(record).toJson(QJsonDocument::Compact)));
}

/// Times `saveTabs` alone, while the store's own thread is idle, and records the slowest call [us].
template <class Operation>
void Measure(benchmark::State& state, Operation saveTabs)
{
    using Clock = std::chrono::steady_clock;
    using Seconds = std::chrono::duration<double>;

    Client client(static_cast<int>(state.range(0)));
    double slowest = 0;
    for (auto _ : state) {
        const Clock::time_point begin = Clock::now();
        saveTabs();
        const double time = Seconds(Clock::now() - begin).count();
        state.SetIterationTime(time);
        slowest = std::max(slowest, time);
        client.ChangeATitle();
    }
    state.counters["slowest"] = slowest * 1e6;
}

void SaveTabs(benchmark::State& state)
{
    Measure(state, [] { TLRecoverManager::Instance()->SaveTabs(); });
}
BENCHMARK(SaveTabs)->Arg(20)->Arg(1000)->Unit(benchmark::kMicrosecond)->UseManualTime();

void SaveTabsByHand(benchmark::State& state)
{
    Measure(state, SaveTabsByHandOnce);
}
BENCHMARK(SaveTabsByHand)->Arg(20)->Arg(1000)->Unit(benchmark::kMicrosecond)->UseManualTime();

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
