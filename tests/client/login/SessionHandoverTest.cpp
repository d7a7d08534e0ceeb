#include "WaitUntil.h"

#include "login/SessionHandover.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QRandomGenerator>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

namespace {

const QDateTime Now(QDate(2026, 11, 21), QTime(8, 30, 15, 250), Qt::UTC);

SessionHandover MakeHandover()
{
    SessionHandover handover;
    handover.session = {QStringLiteral("demo"), QStringLiteral("merchant"),
                        QStringLiteral("token \"with\" 密 \n letters"), Now.addDays(30)};
    handover.openTabs = true;
    return handover;
}

bool AreSame(const SessionHandover& a, const SessionHandover& b)
{
    return a.session.pin == b.session.pin && a.session.belongType == b.session.belongType &&
           a.session.accessToken == b.session.accessToken && a.session.expiresAt == b.session.expiresAt &&
           a.openTabs == b.openTabs;
}

bool IsAccepted(const QByteArray& text)
{
    return SessionHandover::FromText(text, Now).has_value();
}

QByteArray With(const QString& key, const QJsonValue& value)
{
    QJsonObject object = QJsonDocument::fromJson(MakeHandover().ToText(Now)).object();
    object.insert(key, value);
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

} // namespace

TEST(SessionHandoverTest, WrittenTextIsRead)
{
    const SessionHandover handover = MakeHandover();
    const auto read = SessionHandover::FromText(handover.ToText(Now), Now);
    ASSERT_TRUE(read.has_value());
    EXPECT_TRUE(AreSame(*read, handover));
}

TEST(SessionHandoverTest, WrittenTextWithoutOptionalValuesIsRead)
{
    SessionHandover handover = MakeHandover();
    handover.openTabs = false;
    handover.session.expiresAt = QDateTime();
    handover.session.belongType.clear();
    const auto read = SessionHandover::FromText(handover.ToText(Now), Now);
    ASSERT_TRUE(read.has_value());
    EXPECT_TRUE(AreSame(*read, handover));
}

TEST(SessionHandoverTest, TextIsOneLine)
{
    const QByteArray text = MakeHandover().ToText(Now);
    EXPECT_EQ(text.indexOf('\n'), text.size() - 1);
}

TEST(SessionHandoverTest, TextIsGoodForAMinute)
{
    const QByteArray text = MakeHandover().ToText(Now);
    EXPECT_TRUE(SessionHandover::FromText(text, Now.addSecs(60)).has_value());
    EXPECT_FALSE(SessionHandover::FromText(text, Now.addSecs(61)).has_value());
    EXPECT_FALSE(SessionHandover::FromText(text, Now.addYears(100)).has_value());
    EXPECT_TRUE(SessionHandover::FromText(text, Now.addSecs(-60)).has_value()) << "a clock that was set back";
    EXPECT_FALSE(SessionHandover::FromText(text, Now.addSecs(-61)).has_value());
}

TEST(SessionHandoverTest, TextWithoutAValidTimeIsRefused)
{
    for (const QJsonValue& when : {QJsonValue(), QJsonValue(QString()), QJsonValue(QStringLiteral("soon")),
                                   QJsonValue(1234567890), QJsonValue(true)}) {
        EXPECT_FALSE(IsAccepted(With(QStringLiteral("written"), when)));
    }
}

TEST(SessionHandoverTest, AnotherVersionIsRefused)
{
    EXPECT_TRUE(IsAccepted(With(QStringLiteral("version"), 1)));
    for (const QJsonValue& version : {QJsonValue(), QJsonValue(0), QJsonValue(2), QJsonValue(1.5),
                                      QJsonValue(1e300), QJsonValue(QStringLiteral("1"))}) {
        EXPECT_FALSE(IsAccepted(With(QStringLiteral("version"), version)));
    }
}

TEST(SessionHandoverTest, TextWithoutTokenOrAccountIsRefused)
{
    for (const char* key : {"accessToken", "pin"}) {
        for (const QJsonValue& value :
             {QJsonValue(), QJsonValue(QString()), QJsonValue(1), QJsonValue(QJsonArray{1})}) {
            EXPECT_FALSE(IsAccepted(With(QLatin1String(key), value))) << key;
        }
    }
    EXPECT_FALSE(IsAccepted(SessionHandover().ToText(Now)));
}

TEST(SessionHandoverTest, TextCutAnywhereIsRefused)
{
    const QByteArray text = MakeHandover().ToText(Now);
    for (int size = 0; size < text.size() - 1; ++size) {
        EXPECT_FALSE(IsAccepted(text.left(size))) << size;
        EXPECT_FALSE(IsAccepted(text.mid(size + 1))) << size;
    }
    EXPECT_TRUE(IsAccepted(text.chopped(1))) << "only the end of the line";
}

TEST(SessionHandoverTest, DamagedTextNeverGivesAnEmptySession)
{
    QRandomGenerator random(20261121);
    const QByteArray text = MakeHandover().ToText(Now);
    for (int round = 0; round < 5000; ++round) {
        QByteArray damaged = text;
        for (int hits = random.bounded(4); hits >= 0; --hits) {
            damaged[random.bounded(damaged.size())] = static_cast<char>(random.bounded(256));
        }
        const auto taken = SessionHandover::FromText(damaged, Now);
        EXPECT_TRUE(!taken || (!taken->session.pin.isEmpty() && !taken->session.accessToken.isEmpty()));
    }
}

TEST(SessionHandoverTest, TypedTextIsRefused)
{
    for (const char* typed : {"", "\n", "\r\n", "y\n", "demo\n", "secret\n", "{}\n", "[]\n", "null\n", "1\n",
                              "{\"pin\":\"demo\",\"accessToken\":\"x\"}\n", "\x04", "\xff\xfe\n"}) {
        EXPECT_FALSE(IsAccepted(typed)) << typed;
    }
    EXPECT_FALSE(IsAccepted(QByteArray(100000, '[')));
    EXPECT_FALSE(IsAccepted(QByteArray(100, '\0')));
}

TEST(SessionHandoverTest, MissingProgramCannotBeStarted)
{
    const QTemporaryDir folder;
    EXPECT_FALSE(MakeHandover().StartProcess(folder.filePath(QStringLiteral("missing")), {}));
}

/// The hand-over between processes, with a small program in place of the client.
class SessionHandoverProcessTest : public ::testing::Test
{
protected:
    SessionHandoverProcessTest() { m_process.setStandardOutputFile(m_output); }
    ~SessionHandoverProcessTest() override
    {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.kill();
            m_process.waitForFinished();
        }
    }

    void Start(const char* mode)
    {
        m_process.start(QStringLiteral(TL_SESSION_TAKER), {QLatin1String(mode)});
        ASSERT_TRUE(m_process.waitForStarted());
    }
    /// Writes to the process's standard input in place of the client.
    void Write(const QByteArray& text)
    {
        m_process.write(text);
        m_process.closeWriteChannel();
    }
    /// Waits until the last process has reported everything.
    [[nodiscard]] bool WaitForEnd()
    {
        return WaitUntil([this] { return Get("end").toBool(); });
    }
    QByteArray GetOutput() const
    {
        QFile file(m_output);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// The value reported under this name; undefined when there is none.
    QJsonValue Get(const char* name) const
    {
        const QList<QByteArray> lines = GetOutput().split('\n');
        for (const QByteArray& line : lines) {
            const QJsonObject said = QJsonDocument::fromJson(line).object();
            if (said.contains(QLatin1String(name))) {
                return said.value(QLatin1String(name));
            }
        }
        return QJsonValue(QJsonValue::Undefined);
    }

    QTemporaryDir m_folder;
    QString m_output = m_folder.filePath(QStringLiteral("output"));
    QProcess m_process;
};

TEST_F(SessionHandoverProcessTest, StartedProcessTakesTheSessionAndOutlivesTheOneBefore)
{
    Start("start");
    ASSERT_TRUE(WaitUntil([this] { return m_process.state() == QProcess::NotRunning; }));
    EXPECT_EQ(m_process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_process.exitCode(), 0);
    ASSERT_TRUE(WaitForEnd()) << GetOutput().toStdString();
    EXPECT_EQ(Get("first"), QJsonValue(QJsonArray{QStringLiteral("demo"), QStringLiteral("merchant"),
                                                  QStringLiteral("a-token-to-look-for"),
                                                  QStringLiteral("2030-01-02T03:04:05.006Z"), true}));
}

TEST_F(SessionHandoverProcessTest, SecondReaderGetsNothing)
{
    Start("start");
    ASSERT_TRUE(WaitForEnd()) << GetOutput().toStdString();
    EXPECT_TRUE(Get("first").isArray());
    EXPECT_TRUE(Get("second").isNull());
}

TEST_F(SessionHandoverProcessTest, TokenStandsNeitherOnTheCommandLineNorInTheEnvironment)
{
    Start("start");
    ASSERT_TRUE(WaitForEnd()) << GetOutput().toStdString();
    ASSERT_TRUE(Get("first").isArray());
    for (const char* name : {"arguments", "environment"}) {
        const QJsonArray texts = Get(name).toArray();
        EXPECT_GT(texts.size(), 1) << name;
        for (const QJsonValue& text : texts) {
            EXPECT_FALSE(text.toString().contains(QStringLiteral("a-token-to-look-for"))) << name;
        }
    }
}

TEST_F(SessionHandoverProcessTest, ClosedInputGivesNoSession)
{
    Start("take");
    Write(QByteArray());
    ASSERT_TRUE(WaitForEnd());
    EXPECT_TRUE(Get("first").isNull());
}

TEST_F(SessionHandoverProcessTest, OldTextIsRefused)
{
    Start("take");
    Write(MakeHandover().ToText(QDateTime::currentDateTimeUtc().addSecs(-120)));
    ASSERT_TRUE(WaitForEnd());
    EXPECT_TRUE(Get("first").isNull()) << "a recorded text could be replayed";
}

TEST_F(SessionHandoverProcessTest, LineIsEnoughWithoutTheEndOfInput)
{
    Start("take");
    m_process.write(MakeHandover().ToText(QDateTime::currentDateTimeUtc()));
    ASSERT_TRUE(WaitUntil([this] { return Get("first").isArray(); }));
    m_process.closeWriteChannel();
    ASSERT_TRUE(WaitForEnd());
}

TEST_F(SessionHandoverProcessTest, TextBeyondTheLimitIsRefused)
{
    SessionHandover handover = MakeHandover();
    handover.session.accessToken = QString(SessionHandover::TextLimit, QLatin1Char('x'));
    Start("take");
    Write(handover.ToText(QDateTime::currentDateTimeUtc()));
    ASSERT_TRUE(WaitForEnd());
    EXPECT_TRUE(Get("first").isNull());
}

TEST_F(SessionHandoverProcessTest, LongTokenWithinTheLimitIsTaken)
{
    SessionHandover handover = MakeHandover();
    handover.session.accessToken = QString(SessionHandover::TextLimit - 1000, QLatin1Char('x'));
    Start("take");
    Write(handover.ToText(QDateTime::currentDateTimeUtc()));
    ASSERT_TRUE(WaitForEnd());
    EXPECT_EQ(Get("first").toArray().at(2).toString(), handover.session.accessToken);
}
