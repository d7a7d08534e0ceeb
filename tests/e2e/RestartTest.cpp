#include "ClientTest.h"
#include "Desktop.h"
#include "TabState.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFileInfo>

namespace {

constexpr int restarts = 20;
constexpr int tabCount = 30;

qint64 GetFolderSize(const QString& folder)
{
    qint64 size = 0;
    QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        files.next();
        size += files.fileInfo().size();
    }
    return size;
}

} // namespace

/// "Restart client": a fresh process in place of the old one, with its session and its tabs.
class RestartTest : public ClientTest
{
protected:
    QVector<QJsonObject> GetEventsSinceStart() const
    {
        QVector<QJsonObject> events;
        for (const QJsonObject& event : m_client->GetEvents()) {
            if (EventName(event) == QLatin1String("start")) {
                events.clear();
            }
            events.append(event);
        }
        return events;
    }
    bool RestartByMenu()
    {
        const Desktop desktop(m_screen.GetDisplay());
        return desktop.WaitForWindow(m_client->GetProcessId()) && desktop.Press({QStringLiteral("F10")}) &&
               desktop.Press({QStringLiteral("r")});
    }
    bool WaitForRestarted(int starts, const QStringList& tabs)
    {
        return m_client->WaitForEvents(QStringLiteral("start"), starts, 30000) &&
               m_client->WaitFor(
                   [&tabs](const QVector<QJsonObject>& events) { return TabState::After(events) == tabs; },
                   30000);
    }
};

TEST_F(RestartTest, TabsComeBackInOrderWithoutAQuestionOrAPassword)
{
    LogInAndOpen();
    const QStringList tabs = TabState::After(m_client->GetEvents());
    ASSERT_TRUE(RestartByMenu());
    ASSERT_TRUE(WaitForRestarted(2, tabs));
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("question.asked")).isEmpty());
    const QVector<QJsonObject> logins = m_client->GetEvents(QStringLiteral("login"));
    ASSERT_EQ(logins.size(), 2);
    EXPECT_TRUE(logins[1].value(QStringLiteral("ok")).toBool());
    EXPECT_TRUE(logins[1].value(QStringLiteral("restart")).toBool());
    EXPECT_EQ(m_front->GetCallCount(QStringLiteral("dsm.tl.pc.user.login")), 1)
        << "the session goes on, nobody signs in anew";
    ASSERT_TRUE(m_client->Quit());
    const QVector<QJsonObject> exits = m_client->GetEvents(QStringLiteral("exit"));
    ASSERT_EQ(exits.size(), 2);
    EXPECT_EQ(exits[0].value(QStringLiteral("kind")).toString(), QStringLiteral("restart"));
    EXPECT_TRUE(exits[0].value(QStringLiteral("orderly")).toBool());
}

TEST_F(RestartTest, SessionStandsNowhereOnDiskWhileItIsHandedOver)
{
    LogInAndOpen();
    const QStringList tabs = TabState::After(m_client->GetEvents());
    ASSERT_TRUE(RestartByMenu());
    ASSERT_TRUE(WaitForRestarted(2, tabs));
    const QByteArray arguments = [this] {
        QFile commandLine(QStringLiteral("/proc/%1/cmdline").arg(m_client->GetProcessId()));
        return commandLine.open(QIODevice::ReadOnly) ? commandLine.readAll() : QByteArray();
    }();
    ASSERT_TRUE(arguments.contains("--take-session"));
    EXPECT_FALSE(arguments.contains("--password-file"));
    EXPECT_FALSE(arguments.contains("--pin"));
    ASSERT_TRUE(m_client->Quit());
}

TEST_F(RestartTest, TakingASessionThatNobodyHandsOverLeadsToTheLogInDialog)
{
    LogInAndOpen();
    ASSERT_TRUE(m_client->Quit());
    // The same command line once more: its end of the pipe is closed and empty.
    m_client->Start({QStringLiteral("--gateway"), m_front->GetAddress(), QStringLiteral("--take-session"),
                     QStringLiteral("--quit-after"), QStringLiteral("8000")},
                    "{\"version\":1,\"accessToken\":\"made up\"}\n");
    ASSERT_TRUE(m_client->WaitForEnd(30000));
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("login")).isEmpty());
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("tab.opened")).isEmpty());
}

TEST_F(RestartTest, ThirtyTabsSurviveTwentyRestartsInARowAndTheProfileDoesNotGrow)
{
    LogInAndOpen();
    const Desktop desktop(m_screen.GetDisplay());
    ASSERT_TRUE(desktop.WaitForWindow(m_client->GetProcessId()));
    for (int tab = m_expected.urls.size(); tab < tabCount; ++tab) {
        const QString address =
            QStringLiteral("%1/demo/orders?tab=%2").arg(m_gateway->GetAddress().toString()).arg(tab);
        ASSERT_TRUE(desktop.Press({QStringLiteral("ctrl+t")}));
        ASSERT_TRUE(desktop.Type(address));
        ASSERT_TRUE(desktop.Press({QStringLiteral("Return")}));
        ASSERT_TRUE(m_client->WaitFor([&address](const QVector<QJsonObject>& events) {
            for (const QJsonObject& event : events) {
                if (EventName(event) == QLatin1String("page.loaded") &&
                    event.value(QStringLiteral("url")).toString() == address) {
                    return true;
                }
            }
            return false;
        })) << address.toStdString();
    }
    const QStringList tabs = TabState::After(m_client->GetEvents());
    ASSERT_EQ(tabs.size(), tabCount);
    qint64 sizeAtFirst = 0;
    const QString profile = m_folder.filePath(QStringLiteral("profile"));
    for (int round = 1; round <= restarts; ++round) {
        ASSERT_TRUE(RestartByMenu()) << "round " << round;
        ASSERT_TRUE(WaitForRestarted(round + 1, tabs))
            << "round " << round << ": " << (tabs.join(QLatin1Char('\n'))).toStdString() << "\nbecame\n"
            << TabState::After(m_client->GetEvents()).join(QLatin1Char('\n')).toStdString();
        if (round == 5) {
            sizeAtFirst = GetFolderSize(profile); // the caches of the pages are warm by now
        }
    }
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("question.asked")).isEmpty());
    const qint64 sizeAtLast = GetFolderSize(profile);
    RecordProperty("profileBytesAfter5", std::to_string(sizeAtFirst));
    RecordProperty("profileBytesAfter20", std::to_string(sizeAtLast));
    EXPECT_LT(sizeAtLast, sizeAtFirst + sizeAtFirst / 2);
    ASSERT_TRUE(m_client->Quit());
}
