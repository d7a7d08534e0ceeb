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

const QString systemItems = QStringLiteral("systemItems");
const QString customItems = QStringLiteral("customItems");
const QString pluginItems = QStringLiteral("pluginItems");
const QString urlKey = QStringLiteral("url");
const QString checkedKey = QStringLiteral("checked");
const QString activeKey = QStringLiteral("activeItem");

const QString getMethod = QStringLiteral("dsm.tl.pc.auto.run.get");
const QString setMethod = QStringLiteral("dsm.tl.pc.auto.run.set");

constexpr int limit = 5; // own addresses, and apps

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
        for (const QString& list : {systemItems, customItems, pluginItems}) {
            const QJsonArray entries = stored.value(list).toArray();
            for (const QJsonValue& entry : entries) {
                if (entry.toObject().value(activeKey).toBool()) {
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
        for (const QString& list : {systemItems, customItems, pluginItems}) {
            const QJsonArray entries = stored.value(list).toArray();
            for (int row = 0; row < entries.size(); ++row) {
                const bool active = entries.at(row).toObject().value(activeKey).toBool();
                QVector<Stop> places{Stop::CheckBox};
                if (list != systemItems) {
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
            if (list != systemItems) {
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
        const int reads = m_front->GetCallCount(getMethod);
        if (!m_desktop->WaitForWindow(m_client->GetProcessId()) ||
            !m_desktop->Press({QStringLiteral("ctrl+comma")}) ||
            !m_desktop->WaitForTitle(QStringLiteral("Settings"))) {
            return false;
        }
        if (first && !m_desktop->Press({QStringLiteral("Down"), QStringLiteral("Down")})) {
            return false;
        }
        return QTest::qWaitFor([this, reads] { return m_front->GetCallCount(getMethod) > reads; }, 10000);
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
    ASSERT_TRUE(PressPlace(systemItems, 0, Stop::CheckBox));
    ASSERT_TRUE(WaitForEntry(systemItems, 0, checkedKey, false));

    // Add an address: first one that is none of ours, then a good one.
    ASSERT_TRUE(PressPlace(customItems, -1, Stop::Add));
    ASSERT_TRUE(m_desktop->WaitForTitle(QStringLiteral("Add Url")));
    ASSERT_TRUE(Enter(QStringLiteral("http://vx.example.evil.test/")));
    QTest::qWait(settled);
    EXPECT_TRUE(m_desktop->WaitForTitle(QStringLiteral("Add Url"))) << "a bad address closes nothing";
    ASSERT_TRUE(Enter(MakeAddress(QStringLiteral("returns"))));
    ASSERT_TRUE(WaitForCount(customItems, 3));
    EXPECT_EQ(GetEntry(customItems, 2).value(urlKey).toString(), MakeAddress(QStringLiteral("returns")));
    EXPECT_FALSE(GetEntry(customItems, 2).value(checkedKey).toBool()) << "a new entry waits to be ticked";
    ASSERT_TRUE(PressPlace(customItems, 2, Stop::CheckBox));
    ASSERT_TRUE(WaitForEntry(customItems, 2, checkedKey, true));

    // Edit it.
    ASSERT_TRUE(PressPlace(customItems, 2, Stop::Edit));
    ASSERT_TRUE(m_desktop->WaitForTitle(QStringLiteral("Edit Url")));
    ASSERT_TRUE(Enter(MakeAddress(QStringLiteral("reviews"))));
    ASSERT_TRUE(WaitForEntry(customItems, 2, urlKey, MakeAddress(QStringLiteral("reviews"))));

    // Add an app, then make it another one.
    ASSERT_TRUE(PressPlace(pluginItems, -1, Stop::Add));
    ASSERT_TRUE(m_desktop->WaitForTitle(QStringLiteral("Add App")));
    ASSERT_TRUE(m_desktop->Press({QStringLiteral("Down"), QStringLiteral("Return")}));
    ASSERT_TRUE(WaitForCount(pluginItems, 4));
    const QString added = GetEntry(pluginItems, 3).value(urlKey).toString();
    ASSERT_TRUE(PressPlace(pluginItems, 3, Stop::Edit));
    ASSERT_TRUE(m_desktop->WaitForTitle(QStringLiteral("Edit App")));
    ASSERT_TRUE(m_desktop->Press({QStringLiteral("Down"), QStringLiteral("Return")}));
    ASSERT_TRUE(WaitForStored([&added](const QJsonObject& stored) {
        const QString now = stored.value(pluginItems).toArray().at(3).toObject().value(urlKey).toString();
        return !now.isEmpty() && now != added;
    }));

    // Open the new address first; delete it; then nothing but the home page is first.
    ASSERT_TRUE(PressPlace(customItems, 2, Stop::OpenFirst));
    ASSERT_TRUE(WaitForEntry(customItems, 2, activeKey, true));
    ASSERT_TRUE(PressPlace(customItems, 2, Stop::Delete));
    ASSERT_TRUE(WaitForCount(customItems, 2));
    EXPECT_TRUE(IsHomeFirst(GetStored()));

    // Up to both limits, and one more of each.
    for (int count = 2; count < limit; ++count) {
        ASSERT_TRUE(PressPlace(customItems, -1, Stop::Add));
        ASSERT_TRUE(m_desktop->WaitForTitle(QStringLiteral("Add Url")));
        ASSERT_TRUE(Enter(MakeAddress(QStringLiteral("orders?%1").arg(count))));
        ASSERT_TRUE(WaitForCount(customItems, count + 1));
    }
    ASSERT_TRUE(PressPlace(pluginItems, -1, Stop::Add));
    ASSERT_TRUE(m_desktop->WaitForTitle(QStringLiteral("Add App")));
    ASSERT_TRUE(m_desktop->Press({QStringLiteral("Down"), QStringLiteral("Return")}));
    ASSERT_TRUE(WaitForCount(pluginItems, limit));
    const QJsonObject full = GetStored();
    const int writes = m_front->GetCallCount(setMethod);
    for (const QString& list : {customItems, pluginItems}) {
        const QString event = list == customItems ? QStringLiteral("Home_Openingsetting_Addpage")
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
    EXPECT_EQ(m_front->GetCallCount(setMethod), writes);
    ASSERT_TRUE(PressPlace(pluginItems, 0, Stop::OpenFirst));
    ASSERT_TRUE(WaitForEntry(pluginItems, 0, activeKey, true));
    ASSERT_TRUE(PressPlace(QString(), -1, Stop::HomeFirst));
    ASSERT_TRUE(WaitForStored(&SettingsTest::IsHomeFirst));
    ASSERT_TRUE(PressPlace(pluginItems, 1, Stop::OpenFirst));
    ASSERT_TRUE(WaitForEntry(pluginItems, 1, activeKey, true));

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
    for (const QString& list : {systemItems, customItems, pluginItems}) {
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
        opened << event.value(urlKey).toString();
    }
    EXPECT_EQ(opened, m_expected.urls);
    EXPECT_TRUE(m_client->Quit());
}

TEST_F(SettingsTest, WhatWasChosenOpensAtTheNextLogInAlsoWithoutTheGateway)
{
    LogInAndOpen();
    ASSERT_TRUE(OpenSettings(true));
    ASSERT_TRUE(PressPlace(systemItems, 0, Stop::CheckBox));
    ASSERT_TRUE(WaitForEntry(systemItems, 0, checkedKey, false));
    const int reads = m_front->GetCallCount(getMethod);
    ASSERT_TRUE(CloseSettings());
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_front->GetCallCount(getMethod) > reads; }, 10000))
        << "what is kept is older than what was chosen";
    ASSERT_TRUE(m_desktop->WaitForWindow(m_client->GetProcessId()));
    ASSERT_TRUE(m_client->WaitFor([](const QVector<QJsonObject>& events) {
        const auto last = std::find_if(events.rbegin(), events.rend(), [](const QJsonObject& event) {
            return event.value(QStringLiteral("method")).toString() == setMethod;
        });
        return std::any_of(events.rbegin(), last, [](const QJsonObject& event) {
            return event.value(QStringLiteral("method")).toString() == getMethod;
        });
    }));
    ASSERT_TRUE(m_client->Quit());

    for (const QString& method : {getMethod, setMethod}) {
        m_front->SetFault(method, FaultyGateway::Fault::Close);
    }
    m_expected = Expected();
    ReadExpectation();
    LogInAndOpen();
    QStringList opened;
    const QVector<QJsonObject> events = m_client->GetEvents(QStringLiteral("tab.opened"));
    for (const QJsonObject& event : events) {
        opened << event.value(urlKey).toString();
    }
    EXPECT_EQ(opened, m_expected.urls);

    // The page shows the last known list, and takes changes once the gateway answers again.
    const auto countKept = [](const QVector<QJsonObject>& all) {
        return std::count_if(all.begin(), all.end(), [](const QJsonObject& event) {
            return event.value(QStringLiteral("method")).toString() == getMethod &&
                   event.value(QStringLiteral("cached")).toBool();
        });
    };
    const auto kept = countKept(m_client->GetEvents());
    ASSERT_TRUE(OpenSettings());
    ASSERT_TRUE(m_client->WaitFor([&](const QVector<QJsonObject>& all) { return countKept(all) > kept; }));
    for (const QString& method : {getMethod, setMethod}) {
        m_front->SetFault(method, FaultyGateway::Fault::None);
    }
    const int failed = m_front->GetCallCount(getMethod);
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_front->GetCallCount(getMethod) > failed; }, 30000))
        << "the page does not read again by itself";
    QTest::qWait(settled);
    QStringList keys;
    for (int stops = CountStops(GetStored(), systemItems, 0, Stop::CheckBox); stops > 0; --stops) {
        keys << QStringLiteral("Tab");
    }
    ASSERT_TRUE(m_desktop->Press(keys + QStringList{QStringLiteral("space")}));
    EXPECT_TRUE(WaitForEntry(systemItems, 0, checkedKey, true));
    ASSERT_TRUE(CloseSettings());
    EXPECT_TRUE(m_client->Quit());
}
