#include "ClientTest.h"
#include "Desktop.h"
#include "TabState.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtTest/QTest>

namespace {

constexpr int Restarts = 20;
constexpr int TabCount = 30;

/// The size of the client's own files in its profile, and the number of page folders, whose contents belong
/// to the web engine. Leaves out the settings' write-ahead log and its index, whose sizes vary.
struct ProfileSize
{
    qint64 bytes = 0;
    int pageFolders = 0;
};

ProfileSize GetProfileSize(const QString& profile)
{
    ProfileSize size;
    const QString pages = profile + QStringLiteral("/pages");
    QDirIterator files(profile, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        if (!file.startsWith(pages) && !file.endsWith(QLatin1String("-wal")) &&
            !file.endsWith(QLatin1String("-shm"))) {
            size.bytes += files.fileInfo().size();
        }
    }
    size.pageFolders = QDir(pages).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
    return size;
}

} // namespace

/// "Restart client": a fresh process takes the old one's place, with its session and its tabs.
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
    /// The files that contain this text, as it is or as UTF-16: profile, trace, errors and everything else
    /// that the client wrote, but not the gateway's own files.
    QStringList FindFilesWith(const QByteArray& text) const
    {
        const QString letters = QString::fromUtf8(text);
        const auto wide =
            QByteArray::fromRawData(reinterpret_cast<const char*>(letters.utf16()), letters.size() * 2);
        QStringList found;
        QDirIterator files(m_folder.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (files.fileName().startsWith(QLatin1String("gateway.sqlite")) ||
                !file.open(QIODevice::ReadOnly)) {
                continue;
            }
            const QByteArray bytes = file.readAll();
            if (bytes.contains(text) || bytes.contains(wide)) {
                found << file.fileName();
            }
        }
        return found;
    }
    /// A file of the client's process below /proc.
    QByteArray ReadOfProcess(const QString& name) const
    {
        QFile file(QStringLiteral("/proc/%1/%2").arg(m_client->GetProcessId()).arg(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    bool RestartByMenu()
    {
        const Desktop desktop(m_screen.GetDisplay());
        return desktop.WaitForWindow(m_client->GetProcessId()) && desktop.Press({QStringLiteral("F10")}) &&
               desktop.Press({QStringLiteral("r")});
    }
    bool WaitForRestarted(int starts, const QStringList& tabs)
    {
        return m_client->WaitForEvents(QStringLiteral("start"), starts) &&
               m_client->WaitFor(
                   [&tabs](const QVector<QJsonObject>& events) { return TabState::After(events) == tabs; });
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
        << "the session continues without another log-in";
    ASSERT_TRUE(m_client->Quit());
    const QVector<QJsonObject> exits = m_client->GetEvents(QStringLiteral("exit"));
    ASSERT_EQ(exits.size(), 2);
    EXPECT_EQ(exits[0].value(QStringLiteral("kind")).toString(), QStringLiteral("restart"));
    EXPECT_TRUE(exits[0].value(QStringLiteral("orderly")).toBool());
}

TEST_F(RestartTest, HandOverWritesTheSessionNowhereOnDisk)
{
    const QString temporary = m_folder.filePath(QStringLiteral("temporary"));
    ASSERT_TRUE(QDir().mkpath(temporary));
    m_client->SetEnvironment(QStringLiteral("TMPDIR"), temporary);
    LogInAndOpen();
    const QByteArray token = GetLoginReply().value(QStringLiteral("accessToken")).toString().toUtf8();
    ASSERT_GE(token.size(), 16);
    const QStringList tabs = TabState::After(m_client->GetEvents());
    ASSERT_TRUE(RestartByMenu());
    QStringList found;
    const bool restarted = QTest::qWaitFor(
        [this, &found, &token, &tabs] {
            found += FindFilesWith(token);
            return m_client->GetEvents(QStringLiteral("start")).size() == 2 &&
                   TabState::After(m_client->GetEvents()) == tabs;
        },
        120000);
    ASSERT_TRUE(restarted) << m_client->GetErrorOutput().toStdString();

    const QByteArray arguments = ReadOfProcess(QStringLiteral("cmdline"));
    ASSERT_TRUE(arguments.contains("--take-session"));
    EXPECT_FALSE(arguments.contains("--password-file"));
    EXPECT_FALSE(arguments.contains("--pin"));
    EXPECT_FALSE(arguments.contains(token));
    const QByteArray environment = ReadOfProcess(QStringLiteral("environ"));
    ASSERT_TRUE(environment.contains("TMPDIR="));
    EXPECT_FALSE(environment.contains(token));

    ASSERT_TRUE(WaitForRecord());
    found += FindFilesWith(token);
    EXPECT_FALSE(FindFilesWith("RUNNING_TABS").isEmpty()) << "the search works";
    ASSERT_TRUE(m_client->Quit());
    found += FindFilesWith(token);
    found.removeDuplicates();
    EXPECT_TRUE(found.isEmpty()) << found.join(QLatin1Char('\n')).toStdString();
}

TEST_F(RestartTest, InvalidHandOverLeadsToTheLogInDialog)
{
    LogInAndOpen();
    ASSERT_TRUE(m_client->Quit());
    m_client->Start({QStringLiteral("--gateway"), m_front->GetAddress(), QStringLiteral("--take-session")},
                    "{\"version\":1,\"accessToken\":\"made up\"}\n");
    ASSERT_TRUE(Desktop(m_screen.GetDisplay()).WaitForTitle(QStringLiteral("Log in")));
    ASSERT_TRUE(m_client->Stop());
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("login")).isEmpty());
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("tab.opened")).isEmpty());
}

TEST_F(RestartTest, ThirtyTabsSurviveTwentyRestartsInARowAndTheProfileDoesNotGrow)
{
    LogInAndOpen();
    const Desktop desktop(m_screen.GetDisplay());
    ASSERT_TRUE(desktop.WaitForWindow(m_client->GetProcessId()));
    for (int tab = m_expected.urls.size(); tab < TabCount; ++tab) {
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
    ASSERT_EQ(tabs.size(), TabCount);
    ProfileSize sizeAtFirst;
    for (int round = 1; round <= Restarts; ++round) {
        ASSERT_TRUE(RestartByMenu()) << "round " << round;
        ASSERT_TRUE(WaitForRestarted(round + 1, tabs))
            << "round " << round << ": " << (tabs.join(QLatin1Char('\n'))).toStdString() << "\nbecame\n"
            << TabState::After(m_client->GetEvents()).join(QLatin1Char('\n')).toStdString();
        if (round == 5) {
            ASSERT_TRUE(WaitForRecord());
            sizeAtFirst = GetProfileSize(GetProfile());
        }
    }
    EXPECT_TRUE(m_client->GetEvents(QStringLiteral("question.asked")).isEmpty());
    ASSERT_TRUE(WaitForRecord());
    const ProfileSize sizeAtLast = GetProfileSize(GetProfile());
    RecordProperty("profileBytesAfter5", std::to_string(sizeAtFirst.bytes));
    RecordProperty("profileBytesAfter20", std::to_string(sizeAtLast.bytes));
    EXPECT_GT(sizeAtFirst.bytes, 0);
    EXPECT_LT(sizeAtLast.bytes, sizeAtFirst.bytes + sizeAtFirst.bytes / 2);
    EXPECT_EQ(sizeAtLast.pageFolders, sizeAtFirst.pageFolders);
    ASSERT_TRUE(m_client->Quit());
}
