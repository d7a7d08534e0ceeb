#include "ClientTest.h"
#include "Desktop.h"
#include "Programs.h"
#include "TabState.h"

#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QSaveFile>
#include <QtCore/QUrlQuery>

/// Ends that the user did not choose, and ends that another one interrupts.
class EndTest : public ClientTest
{
protected:
    QStringList GetTabs() const { return TabState::After(m_client->GetEvents()); }
    QString GetKindOfLastEnd() const
    {
        const QVector<QJsonObject> ends = m_client->GetEvents(QStringLiteral("exit"));
        return ends.isEmpty() ? QString() : ends.last().value(QStringLiteral("kind")).toString();
    }
    bool WaitForTabs(const QStringList& tabs)
    {
        return m_client->WaitFor(
            [&tabs](const QVector<QJsonObject>& events) { return TabState::After(events) == tabs; });
    }

    /// Logs in with an additional module that executes what `Execute` says.
    void LogInWithExecutingModule()
    {
        ASSERT_TRUE(m_client->AddModule(Programs::FixtureModule(QStringLiteral("ExecutingModule"))));
        m_client->SetEnvironment(QStringLiteral("TL_FIXTURE_EXECUTE"), GetExecuteFile());
        m_client->SetEnvironment(QStringLiteral("TL_FIXTURE_LOG"), GetLogFile());
        LogInAndOpen();
    }
    /// Makes the module execute a router URL.
    void Execute(const QString& url) const
    {
        QSaveFile file(GetExecuteFile()); // appears complete or not at all
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(url.toUtf8());
        ASSERT_TRUE(file.commit());
    }
    /// The executed URLs, each written after its call returned.
    QString GetExecuted() const
    {
        QFile file(GetLogFile());
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

private:
    QString GetExecuteFile() const { return m_folder.filePath(QStringLiteral("execute")); }
    QString GetLogFile() const { return m_folder.filePath(QStringLiteral("executed")); }
};

TEST_F(EndTest, SessionThatTheGatewayRefusesAsksForThePasswordAndThenOffersTheTabs)
{
    LogInAndOpen();
    const QStringList tabs = GetTabs();
    ASSERT_FALSE(m_gateway
                     ->Command({QStringLiteral("user"), QStringLiteral("password"), QStringLiteral("demo")},
                               "another one\n")
                     .isNull());
    const Desktop desktop(m_screen.GetDisplay());
    ASSERT_TRUE(desktop.WaitForWindow(m_client->GetProcessId()));
    // The module's settings page reads the configuration, which the gateway now refuses.
    ASSERT_TRUE(desktop.Press({QStringLiteral("ctrl+comma")}));
    ASSERT_TRUE(desktop.WaitForTitle(QStringLiteral("Settings")));
    ASSERT_TRUE(desktop.Press({QStringLiteral("Down"), QStringLiteral("Down")}));
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("start"), 2));
    EXPECT_EQ(GetKindOfLastEnd(), QStringLiteral("refused"));

    ASSERT_TRUE(desktop.WaitForWindow(m_client->GetProcessId()));
    ASSERT_TRUE(desktop.Type(QStringLiteral("another one")));
    ASSERT_TRUE(desktop.Press({QStringLiteral("Return")}));
    ASSERT_TRUE(AnswerQuestion(QStringLiteral("Return")));
    EXPECT_TRUE(WaitForTabs(tabs)) << GetTabs().join(QLatin1Char('\n')).toStdString();
    ASSERT_TRUE(m_client->Quit());
}

TEST_F(EndTest, ClientThatIsKilledWhileItRestartsLeavesItsTabsAmongTheEarlierOnes)
{
    LogInAndOpen();
    const Desktop desktop(m_screen.GetDisplay());
    ASSERT_TRUE(desktop.WaitForWindow(m_client->GetProcessId()));
    ASSERT_TRUE(desktop.Press({QStringLiteral("F10")}));
    ASSERT_TRUE(desktop.Press({QStringLiteral("r")}));
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("start"), 2));
    m_client->Kill();

    LogInAndOpen();
    EXPECT_TRUE(WaitForNotice(QStringLiteral("Earlier tabs")));
    ASSERT_TRUE(m_client->Quit());
}

TEST_F(EndTest, ModuleMayAskForARestartThatLeavesOneTabOut)
{
    LogInWithExecutingModule();
    QStringList tabs = GetTabs();
    ASSERT_GE(tabs.size(), 3);
    const QString ignored = tabs.takeAt(1);
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("ignore"),
                       QString::fromLatin1(QUrl::toPercentEncoding(ignored.toUpper())));
    const QString url = QStringLiteral("tl://client/restart?") + query.toString(QUrl::FullyEncoded);
    Execute(url);
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("start"), 2));
    EXPECT_TRUE(WaitForTabs(tabs)) << GetTabs().join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(GetExecuted(), url + QLatin1Char('\n')) << "the restart waited for the call to return";
    EXPECT_EQ(GetKindOfLastEnd(), QStringLiteral("restart"));
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("question.asked")).isEmpty());
    ASSERT_TRUE(m_client->Quit());
}

TEST_F(EndTest, ModuleMayAskForARestartThatBringsNoTabsBack)
{
    LogInWithExecutingModule();
    Execute(QStringLiteral("tl://client/restart?tabs=0"));
    ASSERT_TRUE(m_client->WaitForEvents(QStringLiteral("ready"), 2));
    EXPECT_TRUE(GetTabs().isEmpty()) << GetTabs().join(QLatin1Char('\n')).toStdString();
    ASSERT_TRUE(m_client->Quit());
    LogInAndOpen();
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("question.asked")).isEmpty())
        << "the restart left tabs to offer";
    ASSERT_TRUE(m_client->Quit());
}

TEST(ClientLibrariesTest, NoLibraryOfThePlatformGoesWithTheLastModule)
{
    const auto getLibraries = [](const QString& file) {
        QProcess tool;
        tool.start(QStringLiteral("readelf"), {QStringLiteral("--dynamic"), QStringLiteral("--wide"), file});
        tool.waitForFinished();
        static const QRegularExpression library(QStringLiteral("NEEDED.*\\[(lib\\w+)\\.so"));
        QStringList libraries;
        for (auto found = library.globalMatch(QString::fromUtf8(tool.readAllStandardOutput()));
             found.hasNext();) {
            libraries.append(found.next().captured(1));
        }
        return libraries.filter(QStringLiteral("TLPlatform"));
    };
    const QStringList held = getLibraries(Programs::Client());
    const QStringList used = getLibraries(Programs::Modules() + QStringLiteral("/libPlatformAutoRun.so"));
    EXPECT_GT(used.size(), 5);
    for (const QString& library : used) {
        EXPECT_TRUE(held.contains(library)) << library.toStdString();
    }
}
