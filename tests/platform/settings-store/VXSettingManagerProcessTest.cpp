#include "RawDatabase.h"
#include "SettingsStoreProcess.h"
#include "StoreRound.h"
#include "VXSettingManagerFixture.h"

#include "core/TLGlobalData.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRandomGenerator>

#include <array>

namespace {

class VXSettingManagerProcessTest : public VXSettingManagerFixture
{
protected:
    VXSettingManagerProcessTest()
    {
        bool ok = false;
        const int wanted = qEnvironmentVariableIntValue("TL_KILL_ROUNDS", &ok);
        m_rounds = ok ? wanted : 25;
    }

    // Before a round what is on disk at least, after it what is there. -1: no value yet.
    using Steps = std::array<int, StoreRound::FieldCount>;

    // Opens the store that a killed process has left, and takes a look at it.
    void ExpectSoundStoreWithAtLeast(Steps* steps)
    {
        ASSERT_TRUE(m_store.Open(m_file));
        for (int i = 0; i < StoreRound::FieldCount; ++i) {
            const QString value = m_store.GetUserValue(StoreRound::GetSection(), StoreRound::GetField(i));
            const int found = value.isEmpty() ? -1 : StoreRound::GetStep(value);
            EXPECT_GE(found, steps->at(size_t(i))) << "field " << i;
            EXPECT_TRUE(value.isEmpty() || found >= 0) << "half a value";
            steps->at(size_t(i)) = found;
        }
        EXPECT_EQ(m_setAside.count(), 0);
        EXPECT_EQ(m_valueDamaged.count(), 0);
        EXPECT_EQ(m_failed.count(), 0);
        m_store.Close();
        EXPECT_EQ(RawDatabase(m_file).Run(QStringLiteral("PRAGMA integrity_check")).toString(),
                  QStringLiteral("ok"));
    }

    int m_rounds = 0;
    QRandomGenerator m_random{20261121};
};

TEST_F(VXSettingManagerProcessTest, KilledAtAnyMomentNothingIsLostThatWasSaidToBeOnDisk)
{
    TLGlobalData::Instance()->SetUser(QStringLiteral("anna"), QString());
    Steps steps;
    steps.fill(-1);
    int nextStep = 0;
    int acknowledged = 0;
    for (int round = 0; round < m_rounds && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        SettingsStoreProcess process({m_file, QStringLiteral("work"), QString::number(nextStep)});
        QStringList lines;
        if (round % 2 == 0) {
            // However slow the machine is: half of the processes get something done, the others may be
            // killed before.
            lines << process.ReadLine() << process.ReadLine();
            ASSERT_EQ(lines.first(), QStringLiteral("open"));
        }
        process.LetRun(m_random.bounded(200));
        process.Kill();
        lines += process.ReadRest();
        for (const QString& line : qAsConst(lines)) {
            if (line == QLatin1String("open")) {
                continue;
            }
            bool ok = false;
            const int step = line.toInt(&ok);
            ASSERT_TRUE(ok) << line.toStdString();
            steps.at(size_t(step % StoreRound::FieldCount)) = step;
            // The step before may not have waited, but is on disk with this one.
            if (step > 0) {
                steps.at(size_t((step - 1) % StoreRound::FieldCount)) = step - 1;
            }
            nextStep = step + 1;
            ++acknowledged;
        }
        ASSERT_NO_FATAL_FAILURE(ExpectSoundStoreWithAtLeast(&steps));
        for (const int found : steps) {
            nextStep = qMax(nextStep, found + 1);
        }
    }
    EXPECT_GE(acknowledged, m_rounds / 2) << "the processes got something done";
}

TEST_F(VXSettingManagerProcessTest, KilledWhileTheFileIsMadeOrBroughtUpToDateNothingIsLost)
{
    const QString pattern = PathOf("version1.db");
    {
        RawDatabase database(pattern);
        database.Run(QStringLiteral(
            "CREATE TABLE setting (scope INTEGER NOT NULL, user TEXT NOT NULL, section TEXT NOT NULL, field "
            "TEXT NOT NULL, value TEXT NOT NULL, PRIMARY KEY (scope, user, section, field))"));
        database.Run(QStringLiteral(
            "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 2999) "
            "INSERT INTO setting SELECT 0, '', 'SECTION', 'FIELD' || i, 'value ' || i || ';' FROM n"));
        database.Run(QStringLiteral("PRAGMA user_version=1"));
    }
    for (int round = 0; round < m_rounds && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        const bool isFresh = round % 2 == 0;
        m_store.Close();
        QFile::remove(m_file);
        if (!isFresh) {
            ASSERT_TRUE(QFile::copy(pattern, m_file));
        }
        SettingsStoreProcess process({m_file, QStringLiteral("hold")});
        process.LetRun(m_random.bounded(60));
        process.Kill();
        ASSERT_TRUE(m_store.Open(m_file));
        EXPECT_EQ(CountValues(3000, 1), isFresh ? 0 : 3000);
        EXPECT_EQ(m_setAside.count(), 0);
        EXPECT_EQ(m_valueDamaged.count(), 0);
        EXPECT_EQ(m_failed.count(), 0);
    }
}

TEST_F(VXSettingManagerProcessTest, KilledWhileADamagedFileIsReplacedNothingIsLostThatCouldBeRead)
{
    constexpr int count = 1000;
    MakeStore(count, 20);
    QByteArray damaged = ReadFile(m_file);
    damaged.replace(0, 100, QByteArray(100, '\0')); // everything else can be read
    for (int round = 0; round < m_rounds && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("settings.db"));
        WriteFile(file, damaged);
        SettingsStoreProcess process({file, QStringLiteral("hold")});
        process.LetRun(m_random.bounded(120));
        process.Kill();

        ASSERT_TRUE(m_store.Open(file));
        EXPECT_EQ(CountValues(count, 20), count);
        m_store.Close();
        const QStringList aside =
            QDir(folder.path()).entryList({QStringLiteral("settings.db.damaged-*")}, QDir::Files);
        ASSERT_EQ(aside.size(), 1) << aside.join(QLatin1Char(' ')).toStdString();
        EXPECT_EQ(ReadFile(folder.filePath(aside.first())), damaged);
        EXPECT_FALSE(QFile::exists(file + QStringLiteral(".new")));
    }
    EXPECT_EQ(m_failed.count(), 0);
}

TEST_F(VXSettingManagerProcessTest, StoreThatAnotherProcessHasOpenIsRefusedAndLeftAlone)
{
    MakeStore(3, 10);
    SettingsStoreProcess other({m_file, QStringLiteral("hold")});
    ASSERT_EQ(other.ReadLine(), QStringLiteral("open"));

    EXPECT_FALSE(m_store.Open(m_file));
    ASSERT_EQ(m_failed.count(), 1);
    EXPECT_TRUE(m_failed.first().at(0).toString().contains(QLatin1String("Another running program")));
    EXPECT_EQ(CountValues(3, 10), 0) << "what the other one changes would not be seen";
    EXPECT_FALSE(m_store.SetGlobalValueSync(Section(), Field(1), QStringLiteral("mine")));
    EXPECT_EQ(m_store.GetGlobalValue(Section(), Field(1)), QStringLiteral("mine"));
    m_store.Close();

    EXPECT_TRUE(other.Finish());
    EXPECT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(CountValues(3, 10), 3);
    EXPECT_EQ(m_failed.count(), 1);
    EXPECT_EQ(m_setAside.count(), 0);
}

TEST_F(VXSettingManagerProcessTest, DamagedStoreThatAnotherProcessHasOpenIsNotSetAsideUnderIt)
{
    MakeStore(3, 10);
    SettingsStoreProcess other({m_file, QStringLiteral("hold")});
    ASSERT_EQ(other.ReadLine(), QStringLiteral("open"));
    WriteFile(m_file, QByteArrayLiteral("garbage"));
    EXPECT_FALSE(m_store.Open(m_file));
    EXPECT_EQ(m_setAside.count(), 0);
    EXPECT_EQ(ReadFile(m_file), QByteArrayLiteral("garbage"));
}

TEST_F(VXSettingManagerProcessTest, OtherProcessIsRefusedTheStoreThatThisOneHasOpen)
{
    ASSERT_TRUE(m_store.Open(m_file));
    SettingsStoreProcess other({m_file, QStringLiteral("hold")});
    EXPECT_EQ(other.ReadLine(), QStringLiteral("refused"));
    EXPECT_TRUE(m_store.SetGlobalValueSync(Section(), Field(1), QStringLiteral("mine")));
}

TEST_F(VXSettingManagerProcessTest, LockOfAKilledProcessIsGone)
{
    SettingsStoreProcess other({m_file, QStringLiteral("hold")});
    ASSERT_EQ(other.ReadLine(), QStringLiteral("open"));
    other.Kill();
    EXPECT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_failed.count(), 0);
}

TEST_F(VXSettingManagerProcessTest, LockFileWithSomethingElseInItKeepsNobodyOut)
{
    WriteFile(m_file + QStringLiteral(".lock"), QByteArray("garbage ").repeated(1000));
    ASSERT_TRUE(m_store.Open(m_file));
    SettingsStoreProcess other({m_file, QStringLiteral("hold")});
    EXPECT_EQ(other.ReadLine(), QStringLiteral("refused")) << "it locks all the same";
}

} // namespace
