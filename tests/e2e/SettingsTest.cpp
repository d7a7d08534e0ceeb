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

constexpr int Limit = 5; // own addresses, and apps

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

    /// Opens the settings at the page, which they remember.
    bool OpenSettings(bool first = false)
    {
        const int reads = m_front->GetCallCount(GetMethod);
        if (!m_desktop->WaitForWindow(m_client->GetProcessId()) ||
            !m_desktop->Press({QStringLiteral("ctrl+comma")}) ||
            !m_desktop->WaitForTitle(QStringLiteral("Settings"))) {
            return false;
        }
        if (first && !m_desktop->Press({QStringLiteral("Down"), QStringLiteral("Down")})) {
            return false;
        }
        return QTest::qWaitFor([this, reads] { return m_front->GetCallCount(GetMethod) > reads; }, 10000);
    }
    /// Goes to a place of the page in fresh settings and presses it.
    bool PressPlace(const QString& list, int row, Stop place)
    {
        const int stops = CountStops(GetStored(), list, row, place);
        if (stops < 0 || !CloseSettings() || !OpenSettings()) {
            return false;
        }
        QStringList keys;
        for (int i = 0; i < stops; ++i) {
            keys << QStringLiteral("Tab");
        }
        QTest::qWait(settled);
        return m_desktop->Press(keys + QStringList{QStringLiteral("space")});
    }
    bool CloseSettings()
    {
        return m_desktop->Press({QStringLiteral("Escape")}) &&
               QTest::qWaitFor([this] { return !m_desktop->WaitForTitle(QStringLiteral("Settings"), 0); });
    }
    /// Fills in the dialog that is open and confirms it.
    bool Enter(const QString& address)
    {
        return m_desktop->Press({QStringLiteral("ctrl+a")}) && m_desktop->Type(address) &&
               m_desktop->Press({QStringLiteral("Return")});
    }

    /// Time for the answer of the gateway to become rows: nothing outside the client tells when [ms].
    static constexpr int settled = 400;

    std::unique_ptr<Desktop> m_desktop;
};

TEST_F(SettingsTest, WhatIsChosenWithTheKeyboardIsStoredAndOpensAtTheNextLogIn)
{
    LogInAndOpen();
    ASSERT_TRUE(OpenSettings(true));

    // Untick one of the operator's entries.
    ASSERT_TRUE(PressPlace(SystemItems, 0, Stop::CheckBox));
    ASSERT_TRUE(WaitForEntry(SystemItems, 0, CheckedKey, false));

    // Add an address: first one that is none of ours, then a good one.
    ASSERT_TRUE(PressPlace(CustomItems, -1, Stop::Add));
    ASSERT_TRUE(m_desktop->WaitForTitle(QStringLiteral("Add Url")));
    ASSERT_TRUE(Enter(QStringLiteral("http://vx.example.evil.test/")));
    QTest::qWait(settled);
    EXPECT_TRUE(m_desktop->WaitForTitle(QStringLiteral("Add Url"))) << "a bad address closes nothing";
    ASSERT_TRUE(Enter(MakeAddress(QStringLiteral("returns"))));
    ASSERT_TRUE(WaitForCount(CustomItems, 3));
    EXPECT_EQ(GetEntry(CustomItems, 2).value(UrlKey).toString(), MakeAddress(QStringLiteral("returns")));
    EXPECT_FALSE(GetEntry(CustomItems, 2).value(CheckedKey).toBool()) << "a new entry waits to be ticked";
    ASSERT_TRUE(PressPlace(CustomItems, 2, Stop::CheckBox));
    ASSERT_TRUE(WaitForEntry(CustomItems, 2, CheckedKey, true));

    // Edit it.
    ASSERT_TRUE(PressPlace(CustomItems, 2, Stop::Edit));
    ASSERT_TRUE(m_desktop->WaitForTitle(QStringLiteral("Edit Url")));
    ASSERT_TRUE(Enter(MakeAddress(QStringLiteral("reviews"))));
    ASSERT_TRUE(WaitForEntry(CustomItems, 2, UrlKey, MakeAddress(QStringLiteral("reviews"))));

    // Add an app, then make it another one.
    ASSERT_TRUE(PressPlace(PluginItems, -1, Stop::Add));
    ASSERT_TRUE(m_desktop->WaitForTitle(QStringLiteral("Add App")));
    ASSERT_TRUE(m_desktop->Press({QStringLiteral("Down"), QStringLiteral("Return")}));
    ASSERT_TRUE(WaitForCount(PluginItems, 4));
    const QString added = GetEntry(PluginItems, 3).value(UrlKey).toString();
    ASSERT_TRUE(PressPlace(PluginItems, 3, Stop::Edit));
    ASSERT_TRUE(m_desktop->WaitForTitle(QStringLiteral("Edit App")));
    ASSERT_TRUE(m_desktop->Press({QStringLiteral("Down"), QStringLiteral("Return")}));
    ASSERT_TRUE(WaitForStored([&added](const QJsonObject& stored) {
        const QString now = stored.value(PluginItems).toArray().at(3).toObject().value(UrlKey).toString();
        return !now.isEmpty() && now != added;
    }));

    // Open the new address first; delete it; then nothing but the home page is first.
    ASSERT_TRUE(PressPlace(CustomItems, 2, Stop::OpenFirst));
    ASSERT_TRUE(WaitForEntry(CustomItems, 2, ActiveKey, true));
    ASSERT_TRUE(PressPlace(CustomItems, 2, Stop::Delete));
    ASSERT_TRUE(WaitForCount(CustomItems, 2));
    EXPECT_TRUE(IsHomeFirst(GetStored()));

    // Up to both limits, and one more of each.
    for (int count = 2; count < Limit; ++count) {
        ASSERT_TRUE(PressPlace(CustomItems, -1, Stop::Add));
        ASSERT_TRUE(m_desktop->WaitForTitle(QStringLiteral("Add Url")));
        ASSERT_TRUE(Enter(MakeAddress(QStringLiteral("orders?%1").arg(count))));
        ASSERT_TRUE(WaitForCount(CustomItems, count + 1));
    }
    ASSERT_TRUE(PressPlace(PluginItems, -1, Stop::Add));
    ASSERT_TRUE(m_desktop->WaitForTitle(QStringLiteral("Add App")));
    ASSERT_TRUE(m_desktop->Press({QStringLiteral("Down"), QStringLiteral("Return")}));
    ASSERT_TRUE(WaitForCount(PluginItems, Limit));
    const QJsonObject full = GetStored();
    const int writes = m_front->GetCallCount(SetMethod);
    for (const QString& list : {CustomItems, PluginItems}) {
        const QString event = list == CustomItems ? QStringLiteral("Home_Openingsetting_Addpage")
                                                  : QStringLiteral("Home_Openingsetting_AddService");
        const int reported = CountReports(event);
        ASSERT_TRUE(PressPlace(list, -1, Stop::Add));
        EXPECT_TRUE(QTest::qWaitFor([&] { return CountReports(event) > reported; }, 10000))
            << "the press is reported before the limit counts";
        QTest::qWait(settled);
        EXPECT_TRUE(m_desktop->WaitForTitle(QStringLiteral("Settings"), 0)) << "no dialog beyond the limit";
        EXPECT_EQ(CountReports(event), reported + 1);
    }
    EXPECT_EQ(GetStored(), full);
    EXPECT_EQ(m_front->GetCallCount(SetMethod), writes);
    ASSERT_TRUE(PressPlace(PluginItems, 0, Stop::OpenFirst));
    ASSERT_TRUE(WaitForEntry(PluginItems, 0, ActiveKey, true));
    ASSERT_TRUE(PressPlace(QString(), -1, Stop::HomeFirst));
    ASSERT_TRUE(WaitForStored(&SettingsTest::IsHomeFirst));
    ASSERT_TRUE(PressPlace(PluginItems, 1, Stop::OpenFirst));
    ASSERT_TRUE(WaitForEntry(PluginItems, 1, ActiveKey, true));

    // What is in the database is what the gateway says.
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

    // Log out, log in: the ticked entries open.
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
    QStringList opened;
    for (const QJsonObject& event : m_client->GetEvents(QStringLiteral("tab.opened"))) {
        opened << event.value(UrlKey).toString();
    }
    EXPECT_EQ(opened, m_expected.urls);
    EXPECT_TRUE(m_client->Quit());
}

TEST_F(SettingsTest, WhatWasChosenOpensAtTheNextLogInAlsoWithoutTheGateway)
{
    LogInAndOpen();
    ASSERT_TRUE(OpenSettings(true));
    ASSERT_TRUE(PressPlace(SystemItems, 0, Stop::CheckBox));
    ASSERT_TRUE(WaitForEntry(SystemItems, 0, CheckedKey, false));
    const int reads = m_front->GetCallCount(GetMethod);
    ASSERT_TRUE(CloseSettings());
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_front->GetCallCount(GetMethod) > reads; }, 10000))
        << "what is kept is older than what was chosen";
    ASSERT_TRUE(m_desktop->WaitForWindow(m_client->GetProcessId()));
    ASSERT_TRUE(m_client->WaitFor([](const QVector<QJsonObject>& events) {
        const auto last = std::find_if(events.rbegin(), events.rend(), [](const QJsonObject& event) {
            return event.value(QStringLiteral("method")).toString() == SetMethod;
        });
        return std::any_of(events.rbegin(), last, [](const QJsonObject& event) {
            return event.value(QStringLiteral("method")).toString() == GetMethod;
        });
    }));
    ASSERT_TRUE(m_client->Quit());

    for (const QString& method : {GetMethod, SetMethod}) {
        m_front->SetFault(method, FaultyGateway::Fault::Close);
    }
    m_expected = Expected();
    ReadExpectation();
    LogInAndOpen();
    QStringList opened;
    const QVector<QJsonObject> events = m_client->GetEvents(QStringLiteral("tab.opened"));
    for (const QJsonObject& event : events) {
        opened << event.value(UrlKey).toString();
    }
    EXPECT_EQ(opened, m_expected.urls);

    // The page shows the last known list, and takes changes once the gateway answers again.
    const auto countKept = [](const QVector<QJsonObject>& all) {
        return std::count_if(all.begin(), all.end(), [](const QJsonObject& event) {
            return event.value(QStringLiteral("method")).toString() == GetMethod &&
                   event.value(QStringLiteral("cached")).toBool();
        });
    };
    const auto kept = countKept(m_client->GetEvents());
    ASSERT_TRUE(OpenSettings());
    ASSERT_TRUE(m_client->WaitFor([&](const QVector<QJsonObject>& all) { return countKept(all) > kept; }));
    for (const QString& method : {GetMethod, SetMethod}) {
        m_front->SetFault(method, FaultyGateway::Fault::None);
    }
    const int failed = m_front->GetCallCount(GetMethod);
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_front->GetCallCount(GetMethod) > failed; }, 30000))
        << "the page does not read again by itself";
    QTest::qWait(settled);
    QStringList keys;
    for (int stops = CountStops(GetStored(), SystemItems, 0, Stop::CheckBox); stops > 0; --stops) {
        keys << QStringLiteral("Tab");
    }
    ASSERT_TRUE(m_desktop->Press(keys + QStringList{QStringLiteral("space")}));
    EXPECT_TRUE(WaitForEntry(SystemItems, 0, CheckedKey, true));
    ASSERT_TRUE(CloseSettings());
    EXPECT_TRUE(m_client->Quit());
}
