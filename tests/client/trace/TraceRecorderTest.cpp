#include "QuestionAnswer.h"

#include "system/QuestionWatch.h"
#include "trace/TraceRecorder.h"
#include "trace/TraceWriter.h"

#include "base-ui/PackagedMsgBox.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

class TraceRecorderTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QString problem;
        ASSERT_TRUE(m_writer.Open(m_file, &problem)) << problem.toStdString();
    }
    /// What was written under the event's name, in order.
    QVector<QJsonObject> GetEvents(const char* name) const
    {
        QVector<QJsonObject> events;
        QFile file(m_file);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QList<QByteArray> lines = file.readAll().split('\n');
        for (const QByteArray& line : lines) {
            const QJsonObject event = QJsonDocument::fromJson(line).object();
            if (event.value(QStringLiteral("event")).toString() == QLatin1String(name)) {
                events.append(event);
            }
        }
        return events;
    }

    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(QStringLiteral("trace"));
    TraceWriter m_writer;
    TraceRecorder m_recorder{&m_writer};
};

TEST_F(TraceRecorderTest, QuestionIsWrittenBeforeItsAnswer)
{
    QuestionWatch watch;
    m_recorder.Watch(&watch);
    QuestionAnswer no(QStringLiteral("no_button"));
    int asked = -1;
    int answered = -1;
    no.SetBefore([&] {
        asked = GetEvents("question.asked").size();
        answered = GetEvents("question").size();
    });
    PackagedMsgBox::question(QStringLiteral("recover the tabs?"));
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(answered, 0);
    ASSERT_EQ(GetEvents("question").size(), 1);
    EXPECT_EQ(GetEvents("question").constFirst().value(QStringLiteral("text")).toString(),
              QStringLiteral("recover the tabs?"));
    EXPECT_EQ(GetEvents("question").constFirst().value(QStringLiteral("answer")).toString(),
              QStringLiteral("No"));
}

TEST_F(TraceRecorderTest, EachKindOfEndHasAName)
{
    for (const EndKind kind :
         {EndKind::Quit, EndKind::LogOut, EndKind::Refused, EndKind::Restart, EndKind::SystemEnd}) {
        m_recorder.WriteExit(kind);
    }
    QStringList kinds;
    const QVector<QJsonObject> events = GetEvents("exit");
    for (const QJsonObject& event : events) {
        EXPECT_TRUE(event.value(QStringLiteral("orderly")).toBool());
        kinds.append(event.value(QStringLiteral("kind")).toString());
    }
    EXPECT_EQ(kinds,
              (QStringList{QStringLiteral("quit"), QStringLiteral("log out"), QStringLiteral("refused"),
                           QStringLiteral("restart"), QStringLiteral("system end")}));
}

TEST_F(TraceRecorderTest, LogInSaysWhereItCameFrom)
{
    m_recorder.WriteLogin(QStringLiteral("demo"), true, LoginFlow::Origin::Restart);
    m_recorder.WriteLogin(QStringLiteral("demo"), true, LoginFlow::Origin::Saved);
    const QVector<QJsonObject> events = GetEvents("login");
    ASSERT_EQ(events.size(), 2);
    EXPECT_TRUE(events.at(0).value(QStringLiteral("restart")).toBool());
    EXPECT_FALSE(events.at(0).contains(QStringLiteral("kept")));
    EXPECT_TRUE(events.at(1).value(QStringLiteral("kept")).toBool());
    EXPECT_FALSE(events.at(1).contains(QStringLiteral("restart")));
}

TEST_F(TraceRecorderTest, ASettingsPageSaysWhichOneItIsAndWhetherItIsCached)
{
    m_recorder.WriteSettingsPage(QStringLiteral("10,60"), false);
    m_recorder.WriteSettingsPage(QStringLiteral("10,60"), true);
    const QVector<QJsonObject> events = GetEvents("settings.page");
    ASSERT_EQ(events.size(), 2);
    EXPECT_EQ(events.at(0).value(QStringLiteral("page")).toString(), QStringLiteral("10,60"));
    EXPECT_FALSE(events.at(0).value(QStringLiteral("cached")).toBool(true));
    EXPECT_TRUE(events.at(1).value(QStringLiteral("cached")).toBool());
}
