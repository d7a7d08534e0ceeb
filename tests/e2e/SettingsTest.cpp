#include "ClientTest.h"
#include "Desktop.h"
#include "TabState.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QProcess>
#include <QtTest/QTest>

#include <algorithm>
#include <functional>

namespace {

const QString SystemItems = QStringLiteral("systemItems");
const QString CustomItems = QStringLiteral("customItems");
const QString PluginItems = QStringLiteral("pluginItems");
const QString UrlKey = QStringLiteral("url");
const QString CheckedKey = QStringLiteral("checked");
const QString ActiveKey = QStringLiteral("activeItem");

const QString GetMethod = QStringLiteral("dsm.tl.pc.auto.run.get");
const QString SetMethod = QStringLiteral("dsm.tl.pc.auto.run.set");

const QString OpeningPage = QStringLiteral("10,60"); // the page with the three lists
constexpr int Limit = 5;                             // own addresses, and apps

} // namespace

/// The merchant sets up what opens at the start, with the keyboard alone, in the built client. What was
/// stored is read from the gateway.
class SettingsTest : public ClientTest
{
protected:
    /// A place of the page that takes the focus.
    enum class Stop
    {
        CheckBox,
        Edit,
        Delete,
        OpenFirst,
        Add,
        HomeFirst
    };

    void SetUp() override
    {
        ClientTest::SetUp();
        m_client->SetEnvironment(QStringLiteral("TL_GATEWAY_DOMAINS"),
                                 QStringLiteral("vx.example,localhost"));
        m_desktop = std::make_unique<Desktop>(m_screen.GetDisplay());
    }

    QString MakeAddress(const QString& page) const
    {
        return QStringLiteral("http://localhost:%1/demo/%2").arg(m_gateway->GetAddress().port()).arg(page);
    }

    QJsonObject GetStored() const
    {
        return QJsonDocument::fromJson(m_gateway->Command({QStringLiteral("config"), QStringLiteral("show"),
                                                           QStringLiteral("demo")}))
            .object();
    }
    QJsonObject GetEntry(const QString& list, int row) const
    {
        return GetStored().value(list).toArray().at(row).toObject();
    }
    bool WaitForStored(const std::function<bool(const QJsonObject&)>& condition) const
    {
        return QTest::qWaitFor([this, &condition] { return condition(GetStored()); }, 10000);
    }
    bool WaitForEntry(const QString& list, int row, const QString& key, const QJsonValue& value) const
    {
        return WaitForStored([&](const QJsonObject& stored) {
            return stored.value(list).toArray().at(row).toObject().value(key) == value;
        });
    }
    bool WaitForCount(const QString& list, int count) const
    {
        return WaitForStored(
            [&](const QJsonObject& stored) { return stored.value(list).toArray().size() == count; });
    }

    static bool IsHomeFirst(const QJsonObject& stored)
    {
        for (const QString& list : {SystemItems, CustomItems, PluginItems}) {
            const QJsonArray entries = stored.value(list).toArray();
            for (const QJsonValue& entry : entries) {
                if (entry.toObject().value(ActiveKey).toBool()) {
                    return false;
                }
            }
        }
        return true;
    }

    /// How many places with a focus come before this one, counted from the list of pages.
    static int CountStops(const QJsonObject& stored, const QString& wantedList, int wantedRow, Stop wanted)
    {
        // The home page's row has one while another entry is first.
        int stops = IsHomeFirst(stored) ? 0 : 1;
        if (wanted == Stop::HomeFirst) {
            return stops > 0 ? stops : -1;
        }
        for (const QString& list : {SystemItems, CustomItems, PluginItems}) {
            const QJsonArray entries = stored.value(list).toArray();
            for (int row = 0; row < entries.size(); ++row) {
                const bool active = entries.at(row).toObject().value(ActiveKey).toBool();
                QVector<Stop> places{Stop::CheckBox};
                if (list != SystemItems) {
                    places << Stop::Edit << Stop::Delete;
                }
                if (!active) {
                    places << Stop::OpenFirst;
                }
                for (const Stop place : qAsConst(places)) {
                    ++stops;
                    if (list == wantedList && row == wantedRow && place == wanted) {
                        return stops;
                    }
                }
            }
            if (list != SystemItems) {
                ++stops;
                if (list == wantedList && wanted == Stop::Add) {
                    return stops;
                }
            }
        }
        return -1;
    }

    /// How often the page has told of this.
    int CountReports(const QString& id) const
    {
        const QVector<QJsonObject> reports = m_client->GetEvents(QStringLiteral("monitor"));
        return int(std::count_if(reports.begin(), reports.end(), [&id](const QJsonObject& report) {
            return report.value(QStringLiteral("id")).toString() == id;
        }));
    }

    /// How often the page has shown what it has read from the gateway, or what the client had cached.
    int CountShown(bool cached = false) const
    {
        const QVector<QJsonObject> pages = m_client->GetEvents(QStringLiteral("settings.page"));
        return int(std::count_if(pages.begin(), pages.end(), [cached](const QJsonObject& page) {
            return page.value(QStringLiteral("page")).toString() == OpeningPage &&
                   page.value(QStringLiteral("cached")).toBool() == cached;
        }));
    }
    bool WaitForShown(int before, bool cached = false) const
    {
        constexpr int patience = 30000; // [ms], more than the client's first pauses without a gateway
        return QTest::qWaitFor([=] { return CountShown(cached) > before; }, patience);
    }

    /// Opens the settings at the page, which they remember, and waits for its rows.
    bool OpenSettings(bool first = false, bool cached = false)
    {
        const int shown = CountShown(cached);
        if (!m_desktop->WaitForWindow(m_client->GetProcessId()) ||
            !m_desktop->Press({QStringLiteral("ctrl+comma")}) ||
            !m_desktop->WaitForTitle(QStringLiteral("Settings"))) {
            return false;
        }
        if (first && !m_desktop->Press({QStringLiteral("Down"), QStringLiteral("Down")})) {
            return false;
        }
        return WaitForShown(shown, cached);
    }
    /// Goes from the list of pages to a place of the page and presses it.
    bool PressFromList(const QString& list, int row, Stop place)
    {
        const int stops = CountStops(GetStored(), list, row, place);
        if (stops < 0) {
            return false;
        }
        QStringList keys;
        for (int i = 0; i < stops; ++i) {
            keys << QStringLiteral("Tab");
        }
        return m_desktop->Press(keys + QStringList{QStringLiteral("space")});
    }
    /// The same in fresh settings.
    bool PressPlace(const QString& list, int row, Stop place)
    {
        return CloseSettings() && OpenSettings() && PressFromList(list, row, place);
    }
    bool CloseSettings()
    {
        return m_desktop->Press({QStringLiteral("Escape")}) &&
               QTest::qWaitFor([this] { return !m_desktop->WaitForTitle(QStringLiteral("Settings"), 0); });
    }
    /// Waits for the dialog with this title, fills it in and confirms it.
    bool Enter(const QString& title, const QString& address)
    {
        return m_desktop->WaitForTitle(title) && m_desktop->Press({QStringLiteral("ctrl+a")}) &&
               m_desktop->Type(address) && m_desktop->Press({QStringLiteral("Return")});
    }

    /// Adds an address of the merchant's own and waits until it is stored.
    bool AddAddress(const QString& address)
    {
        const int count = GetStored().value(CustomItems).toArray().size();
        return PressPlace(CustomItems, -1, Stop::Add) && Enter(QStringLiteral("Add Url"), address) &&
               WaitForCount(CustomItems, count + 1);
    }
    /// Chooses the next app in the dialog with this title.
    bool ChooseNextApp(const QString& title)
    {
        return m_desktop->WaitForTitle(title) &&
               m_desktop->Press({QStringLiteral("Down"), QStringLiteral("Return")});
    }
    /// Adds apps and addresses until no list takes another one.
    bool FillLists()
    {
        for (int count = GetStored().value(CustomItems).toArray().size(); count < Limit; ++count) {
            if (!AddAddress(MakeAddress(QStringLiteral("orders?%1").arg(count)))) {
                return false;
            }
        }
        for (int count = GetStored().value(PluginItems).toArray().size(); count < Limit; ++count) {
            if (!PressPlace(PluginItems, -1, Stop::Add) || !ChooseNextApp(QStringLiteral("Add App")) ||
                !WaitForCount(PluginItems, count + 1)) {
                return false;
            }
        }
        return true;
    }
    /// Fails reading and writing of the entries, or no longer.
    void SetFault(FaultyGateway::Fault fault)
    {
        for (const QString& method : {GetMethod, SetMethod}) {
            m_front->SetFault(method, fault);
        }
    }
    static bool IsReadSinceTheLastWrite(const QVector<QJsonObject>& events)
    {
        const auto isOf = [](const QString& method) {
            return [method](const QJsonObject& event) {
                return event.value(QStringLiteral("method")).toString() == method;
            };
        };
        const auto lastWrite = std::find_if(events.rbegin(), events.rend(), isOf(SetMethod));
        return std::any_of(events.rbegin(), lastWrite, isOf(GetMethod));
    }
    QStringList GetOpened() const
    {
        QStringList opened;
        const QVector<QJsonObject> events = m_client->GetEvents(QStringLiteral("tab.opened"));
        for (const QJsonObject& event : events) {
            opened << event.value(UrlKey).toString();
        }
        return opened;
    }

    std::unique_ptr<Desktop> m_desktop;
};

TEST_F(SettingsTest, AnAddressIsAddedTickedAndEdited)
{
    LogInAndOpen();
    ASSERT_TRUE(OpenSettings(true));
    ASSERT_TRUE(AddAddress(MakeAddress(QStringLiteral("returns"))));
    EXPECT_EQ(GetEntry(CustomItems, 2).value(UrlKey).toString(), MakeAddress(QStringLiteral("returns")));
    EXPECT_FALSE(GetEntry(CustomItems, 2).value(CheckedKey).toBool()) << "a new entry waits to be ticked";
    ASSERT_TRUE(PressPlace(CustomItems, 2, Stop::CheckBox));
    ASSERT_TRUE(WaitForEntry(CustomItems, 2, CheckedKey, true));
    ASSERT_TRUE(PressPlace(CustomItems, 2, Stop::Edit));
    ASSERT_TRUE(Enter(QStringLiteral("Edit Url"), MakeAddress(QStringLiteral("reviews"))));
    EXPECT_TRUE(WaitForEntry(CustomItems, 2, UrlKey, MakeAddress(QStringLiteral("reviews"))));
    ASSERT_TRUE(CloseSettings());
    EXPECT_TRUE(m_client->Quit());
}

TEST_F(SettingsTest, ABadAddressKeepsTheDialogOpenForABetterOne)
{
    LogInAndOpen();
    ASSERT_TRUE(OpenSettings(true));
    ASSERT_TRUE(PressPlace(CustomItems, -1, Stop::Add));
    ASSERT_TRUE(Enter(QStringLiteral("Add Url"), QStringLiteral("http://vx.example.evil.test/")));
    ASSERT_TRUE(Enter(QStringLiteral("Add Url"), MakeAddress(QStringLiteral("returns"))));
    ASSERT_TRUE(WaitForCount(CustomItems, 3));
    EXPECT_EQ(GetEntry(CustomItems, 2).value(UrlKey).toString(), MakeAddress(QStringLiteral("returns")));
    EXPECT_EQ(m_front->GetCallCount(SetMethod), 1);
    ASSERT_TRUE(CloseSettings());
    EXPECT_TRUE(m_client->Quit());
}

TEST_F(SettingsTest, AnAppIsAddedAndExchanged)
{
    LogInAndOpen();
    ASSERT_TRUE(OpenSettings(true));
    ASSERT_TRUE(PressPlace(PluginItems, -1, Stop::Add));
    ASSERT_TRUE(ChooseNextApp(QStringLiteral("Add App")));
    ASSERT_TRUE(WaitForCount(PluginItems, 4));
    const QString added = GetEntry(PluginItems, 3).value(UrlKey).toString();
    ASSERT_TRUE(PressPlace(PluginItems, 3, Stop::Edit));
    ASSERT_TRUE(ChooseNextApp(QStringLiteral("Edit App")));
    EXPECT_TRUE(WaitForStored([&added](const QJsonObject& stored) {
        const QString url = stored.value(PluginItems).toArray().at(3).toObject().value(UrlKey).toString();
        return !url.isEmpty() && url != added;
    }));
    ASSERT_TRUE(CloseSettings());
    EXPECT_TRUE(m_client->Quit());
}

TEST_F(SettingsTest, AnyEntryOpensFirstAndTheHomePageDoesWhenItIsDeleted)
{
    LogInAndOpen();
    ASSERT_TRUE(OpenSettings(true));
    ASSERT_TRUE(AddAddress(MakeAddress(QStringLiteral("returns"))));
    ASSERT_TRUE(PressPlace(CustomItems, 2, Stop::OpenFirst));
    ASSERT_TRUE(WaitForEntry(CustomItems, 2, ActiveKey, true));
    ASSERT_TRUE(PressPlace(CustomItems, 2, Stop::Delete));
    ASSERT_TRUE(WaitForCount(CustomItems, 2));
    EXPECT_TRUE(IsHomeFirst(GetStored()));
    ASSERT_TRUE(PressPlace(PluginItems, 0, Stop::OpenFirst));
    ASSERT_TRUE(WaitForEntry(PluginItems, 0, ActiveKey, true));
    ASSERT_TRUE(PressPlace(QString(), -1, Stop::HomeFirst));
    EXPECT_TRUE(WaitForStored(&SettingsTest::IsHomeFirst));
    ASSERT_TRUE(CloseSettings());
    EXPECT_TRUE(m_client->Quit());
}

TEST_F(SettingsTest, AFullListTakesNoOtherEntry)
{
    LogInAndOpen();
    ASSERT_TRUE(OpenSettings(true));
    ASSERT_TRUE(FillLists());
    const QJsonObject full = GetStored();
    const int writes = m_front->GetCallCount(SetMethod);
    for (const QString& list : {CustomItems, PluginItems}) {
        const QString event = list == CustomItems ? QStringLiteral("Home_Openingsetting_Addpage")
                                                  : QStringLiteral("Home_Openingsetting_AddService");
        const int reported = CountReports(event);
        ASSERT_TRUE(PressPlace(list, -1, Stop::Add));
        ASSERT_TRUE(QTest::qWaitFor([&] { return CountReports(event) > reported; }, 10000))
            << "the press is reported before the limit counts";
        ASSERT_TRUE(m_desktop->Press({QStringLiteral("space")}));
        EXPECT_TRUE(QTest::qWaitFor([&] { return CountReports(event) > reported + 1; }, 10000))
            << "a dialog keeps the next press from the page";
        EXPECT_EQ(CountReports(event), reported + 2);
    }
    EXPECT_EQ(GetStored(), full);
    EXPECT_EQ(m_front->GetCallCount(SetMethod), writes);
    ASSERT_TRUE(CloseSettings());
    EXPECT_TRUE(m_client->Quit());
}

TEST_F(SettingsTest, WhatIsChosenIsInTheDatabase)
{
    LogInAndOpen();
    ASSERT_TRUE(OpenSettings(true));
    ASSERT_TRUE(PressFromList(SystemItems, 0, Stop::CheckBox));
    ASSERT_TRUE(WaitForEntry(SystemItems, 0, CheckedKey, false));
    QProcess tool;
    tool.start(QStringLiteral("sqlite3"),
               {m_folder.filePath(QStringLiteral("gateway.sqlite")),
                QStringLiteral("SELECT document FROM configuration WHERE pin = 'demo' "
                               "ORDER BY revision DESC LIMIT 1")});
    ASSERT_TRUE(tool.waitForFinished(10000));
    const QJsonObject inDatabase = QJsonDocument::fromJson(tool.readAllStandardOutput()).object();
    ASSERT_FALSE(inDatabase.isEmpty());
    const QJsonObject stored = GetStored();
    for (const QString& list : {SystemItems, CustomItems, PluginItems}) {
        EXPECT_EQ(inDatabase.value(list), stored.value(list)) << list.toStdString();
    }
    ASSERT_TRUE(CloseSettings());
    EXPECT_TRUE(m_client->Quit());
}

TEST_F(SettingsTest, WhatIsChosenOpensAtTheNextLogIn)
{
    LogInAndOpen();
    ASSERT_TRUE(OpenSettings(true));
    ASSERT_TRUE(PressFromList(SystemItems, 0, Stop::CheckBox));
    ASSERT_TRUE(WaitForEntry(SystemItems, 0, CheckedKey, false));
    ASSERT_TRUE(PressPlace(PluginItems, 1, Stop::OpenFirst));
    ASSERT_TRUE(WaitForEntry(PluginItems, 1, ActiveKey, true));
    ASSERT_TRUE(CloseSettings());
    ASSERT_TRUE(m_desktop->WaitForWindow(m_client->GetProcessId()));
    ASSERT_TRUE(m_desktop->Press({QStringLiteral("F10")}));
    ASSERT_TRUE(m_desktop->Press({QStringLiteral("o")}));
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("start"), 2));
    ASSERT_TRUE(m_desktop->WaitForWindow(m_client->GetProcessId()));
    ASSERT_TRUE(m_client->Stop());
    m_expected = Expected();
    ReadExpectation();
    LogInAndOpen();
    EXPECT_EQ(GetOpened(), m_expected.urls);
    EXPECT_TRUE(m_client->Quit());
}

TEST_F(SettingsTest, WhatIsChosenOpensAtTheNextLogInEvenWithoutTheGateway)
{
    LogInAndOpen();
    ASSERT_TRUE(OpenSettings(true));
    ASSERT_TRUE(PressFromList(SystemItems, 0, Stop::CheckBox));
    ASSERT_TRUE(WaitForEntry(SystemItems, 0, CheckedKey, false));
    ASSERT_TRUE(CloseSettings());
    ASSERT_TRUE(m_desktop->WaitForWindow(m_client->GetProcessId()));
    ASSERT_TRUE(m_client->WaitFor(&SettingsTest::IsReadSinceTheLastWrite)) << "the cache is out of date";
    ASSERT_TRUE(m_client->Quit());

    SetFault(FaultyGateway::Fault::Close);
    m_expected = Expected();
    ReadExpectation();
    LogInAndOpen();
    EXPECT_EQ(GetOpened(), m_expected.urls);
    EXPECT_TRUE(m_client->Quit());
}

TEST_F(SettingsTest, APageOfCachedEntriesTakesChangesOnceTheGatewayAnswersAgain)
{
    LogInAndOpen();
    ASSERT_TRUE(OpenSettings(true));
    ASSERT_TRUE(CloseSettings());
    SetFault(FaultyGateway::Fault::Close);
    ASSERT_TRUE(OpenSettings(false, true));
    const int shown = CountShown();
    SetFault(FaultyGateway::Fault::None);
    ASSERT_TRUE(WaitForShown(shown)) << "the page does not read again by itself";
    const bool checked = GetEntry(SystemItems, 0).value(CheckedKey).toBool();
    ASSERT_TRUE(PressFromList(SystemItems, 0, Stop::CheckBox));
    EXPECT_TRUE(WaitForEntry(SystemItems, 0, CheckedKey, !checked));
    ASSERT_TRUE(CloseSettings());
    EXPECT_TRUE(m_client->Quit());
}
