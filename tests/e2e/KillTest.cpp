#include "ClientTest.h"
#include "Desktop.h"
#include "TabState.h"

#include <QtCore/QDateTime>
#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <iostream>
#include <thread>
#include <vector>

namespace {

/// How old the changes that a kill loses may be.
constexpr int Promise = 1000; // [ms]
constexpr int DefaultRounds = 25;
constexpr int MostTabs = 12;

/// The tabs from a certain moment on.
struct Standing
{
    qint64 since; // [ms] of the epoch
    QStringList tabs;
};

QVector<Standing> ReadStandings(const QVector<QJsonObject>& events)
{
    QVector<Standing> standings;
    TabState state;
    qint64 start = 0;
    for (const QJsonObject& event : events) {
        const auto elapsed = qint64(event.value(QStringLiteral("t")).toDouble());
        if (EventName(event) == QLatin1String("start")) {
            const QString time = event.value(QStringLiteral("time")).toString();
            start = QDateTime::fromString(time, Qt::ISODateWithMs).toMSecsSinceEpoch() - elapsed;
        }
        if (!state.Apply(event)) {
            continue;
        }
        QStringList tabs = state.GetRouterUrls();
        tabs.removeAll(QString()); // a start tab has no page to record
        if (standings.isEmpty() || standings.last().tabs != tabs) {
            standings.append({start + elapsed, tabs});
        }
    }
    return standings;
}

/// The age of the oldest change that `found` lacks [ms]; 0 when it lacks none, -1 when it matches no state
/// within the promised time before the kill.
qint64 GetMissing(const QVector<Standing>& standings, qint64 killed, const QStringList& found)
{
    qint64 until = killed;
    for (auto standing = standings.crbegin(); standing != standings.crend(); ++standing) {
        if (standing->tabs == found) {
            return killed - until;
        }
        until = standing->since;
        if (killed - until > Promise) {
            return -1;
        }
    }
    return -1;
}

} // namespace

/// Kills the client at a random moment of random work; the next log-in has to bring everything back.
/// TL_KILL_ROUNDS is the number of rounds, TL_KILL_SEED repeats a run.
class KillTest : public ClientTest
{
protected:
    void SetUp() override
    {
        ClientTest::SetUp();
        bool given = false;
        const int rounds = qEnvironmentVariableIntValue("TL_KILL_ROUNDS", &given);
        m_rounds = given ? rounds : DefaultRounds;
        const int seed = qEnvironmentVariableIntValue("TL_KILL_SEED", &given);
        m_seed = given ? quint32(seed) : QRandomGenerator::global()->generate();
        m_random.seed(m_seed);
    }

    /// Does one thing that a user does with tabs.
    void Act(const Desktop& desktop)
    {
        const int count = TabState::After(m_client->GetEvents()).size();
        const QString address =
            QStringLiteral("http://%1:%2/demo/%3?%4")
                .arg(m_gateway->GetAddress().host())
                .arg(m_gateway->GetAddress().port())
                .arg(m_random.bounded(2) ? QStringLiteral("orders") : QStringLiteral("today"))
                .arg(++m_visits);
        // A key may come after the kill, which does not matter.
        switch (m_random.bounded(6)) {
        case 0:
        case 1:
            if (count < MostTabs) {
                static_cast<void>(desktop.Press({QStringLiteral("ctrl+t")}) && desktop.TypeFast(address) &&
                                  desktop.Press({QStringLiteral("Return")}));
                break;
            }
            [[fallthrough]];
        case 2:
            if (count > 2) {
                static_cast<void>(desktop.Press({QStringLiteral("ctrl+w")}));
            }
            break;
        case 3:
            static_cast<void>(desktop.Press({m_random.bounded(2) ? QStringLiteral("ctrl+shift+Page_Up")
                                                                 : QStringLiteral("ctrl+shift+Page_Down")}));
            break;
        case 4:
            static_cast<void>(desktop.Press({QStringLiteral("ctrl+l")}) && desktop.TypeFast(address) &&
                              desktop.Press({QStringLiteral("Return")}));
            break;
        default:
            static_cast<void>(desktop.Press({QStringLiteral("ctrl+Tab")}));
            break;
        }
    }

    /// Works until the kill; returns its time [ms of the epoch].
    qint64 WorkUntilKilled()
    {
        const auto life = std::chrono::milliseconds(m_random.bounded(300, 3000));
        const auto processId = static_cast<pid_t>(m_client->GetProcessId());
        std::atomic<qint64> killed{0};
        std::thread killer([&killed, life, processId] {
            std::this_thread::sleep_for(life);
            killed = QDateTime::currentMSecsSinceEpoch();
            ::kill(processId, SIGKILL);
        });
        const Desktop desktop(m_screen.GetDisplay());
        while (killed == 0) {
            Act(desktop);
        }
        killer.join();
        EXPECT_TRUE(m_client->WaitForEnd(60000));
        return killed;
    }

    /// Logs in and answers Yes; returns the tabs that come back.
    QStringList Recover()
    {
        LogIn();
        const Desktop desktop(m_screen.GetDisplay());
        if (!AnswerQuestion(QStringLiteral("Return")) ||
            !m_client->WaitForEvents(QStringLiteral("ready"), 1) ||
            !desktop.WaitForWindow(m_client->GetProcessId())) {
            return {};
        }
        QVector<QJsonObject> events = m_client->GetEvents();
        const auto ready = std::find_if(events.begin(), events.end(), [](const QJsonObject& event) {
            return EventName(event) == QLatin1String("ready");
        });
        events.erase(ready, events.end());
        return TabState::After(events);
    }

    int m_rounds = DefaultRounds;
    quint32 m_seed = 0;
    QRandomGenerator m_random;
    int m_visits = 0;
};

TEST_F(KillTest, WhatStoodOneSecondBeforeTheKillComesBack)
{
    LogInAndOpen();
    std::vector<qint64> missing;
    int lost = 0;
    for (int round = 0; round < m_rounds && !HasFatalFailure(); ++round) {
        const qint64 killed = WorkUntilKilled();
        const QVector<Standing> standings = ReadStandings(m_client->GetEvents());
        const QStringList found = Recover();
        const qint64 age = GetMissing(standings, killed, found);
        if (age < 0) {
            ++lost;
            ADD_FAILURE() << "round " << round << ", TL_KILL_SEED=" << m_seed << ", found\n"
                          << found.join(QLatin1Char('\n')).toStdString() << "\nbut at the end there stood\n"
                          << standings.last().tabs.join(QLatin1Char('\n')).toStdString() << "\nfor "
                          << killed - standings.last().since << " ms. The client since:\n"
                          << m_client->GetTrace().toStdString() << m_client->GetErrorOutput().toStdString();
            if (found.isEmpty()) {
                m_client->Kill();
                LogInAndOpen(); // start over
            }
        } else {
            missing.push_back(age);
        }
        EXPECT_FALSE(HasNotice(QStringLiteral("store-set-aside"))) << "round " << round;
        EXPECT_FALSE(HasNotice(QStringLiteral("store-failed"))) << "round " << round;
    }
    std::sort(missing.begin(), missing.end());
    const auto whole = std::count(missing.begin(), missing.end(), 0);
    std::cout << m_rounds << " kills (TL_KILL_SEED=" << m_seed << "): " << lost << " sets lost, " << whole
              << " whole; of the others the oldest missing change was this old [ms]:";
    for (const qint64 age : missing) {
        if (age > 0) {
            std::cout << ' ' << age;
        }
    }
    std::cout << std::endl;
}
