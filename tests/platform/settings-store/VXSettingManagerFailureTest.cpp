#include "FileSizeLimit.h"
#include "RawDatabase.h"
#include "VXSettingManagerFixture.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFileInfo>
#include <QtTest/QTest>

#include <algorithm>
#include <ctime>
#include <limits>

namespace {

/// Processor time of this process so far [ms]. Other programs do not count.
qint64 GetProcessorTime()
{
    return qint64(double(std::clock()) * 1000 / CLOCKS_PER_SEC);
}

class VXSettingManagerFailureTest : public VXSettingManagerFixture
{
protected:
    bool WaitForFailures(int count)
    {
        return QTest::qWaitFor([this, count] { return m_failed.count() >= count; }, 20000);
    }

    int CountRows() const
    {
        return RawDatabase(m_file).Run(QStringLiteral("SELECT count(*) FROM setting")).toInt();
    }
};

TEST_F(VXSettingManagerFailureTest, WriteThatNeverSeemsToEndIsWaitedForOnceAndOnlySoLong)
{
    constexpr int bound = 5000;     // [ms]
    constexpr int nothing = 4000;   // what a busy machine may make of no time at all [ms]
    constexpr int tolerance = 5000; // [ms]
    constexpr int enough = 12500;   // work, so that some is left when a busy machine has waited too long [ms]
    constexpr int rounds = 5;
    ASSERT_TRUE(m_store.Open(m_file));
    {
        // Work for the value that is waited for. How long it takes is told by the quickest of some rounds:
        // the others may have had something in their way.
        const QString count = QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                                             "WHERE i < %1) SELECT max(i) FROM n");
        constexpr qint64 probe = 500000;
        RawDatabase other(m_file);
        qint64 quickest = std::numeric_limits<qint64>::max();
        for (int round = 0; round < rounds; ++round) {
            const qint64 before = GetProcessorTime();
            other.Run(count.arg(probe));
            quickest = std::min(quickest, GetProcessorTime() - before);
        }
        const qint64 work = probe * enough / std::max(quickest, qint64(1));
        other.Run(QStringLiteral("CREATE TRIGGER slow AFTER INSERT ON setting WHEN NEW.value = '%1' "
                                 "BEGIN SELECT (%2); END")
                      .arg(Value(1, 5), count.arg(work)));
    }

    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(m_store.SetUserValueSync(Section(), Field(1), Value(1, 5)));
    EXPECT_GE(timer.elapsed(), bound - 100);
    EXPECT_LT(timer.elapsed(), bound + tolerance);
    EXPECT_EQ(m_store.GetUserValue(Section(), Field(1)), Value(1, 5));

    timer.restart();
    m_store.SetUserValue(Section(), Field(1), Value(2, 5));
    EXPECT_FALSE(m_store.Flush());
    EXPECT_FALSE(m_store.SetUserValueSync(Section(), Field(1), Value(3, 5)));
    EXPECT_LT(timer.elapsed(), nothing) << "it is known to take its time";
    EXPECT_TRUE(WaitForFailures(1));
    EXPECT_EQ(m_failed.count(), 1) << "told once";
    // The value that was waited for gets to the disk all the same.
    EXPECT_TRUE(QTest::qWaitFor([this] { return CountRows() == 1; }, 150000));
    m_store.Close(); // which ends the last write, too
    RawDatabase(m_file).Run(QStringLiteral("DROP TRIGGER slow"));
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_store.GetUserValue(Section(), Field(1)), Value(3, 5));
    EXPECT_EQ(m_failed.count(), 1);
}

// A disk that takes no more.
class VXSettingManagerDiskTest : public VXSettingManagerFailureTest
{
protected:
    void SetUp() override
    {
        if (!FileSizeLimit::IsSupported()) {
            GTEST_SKIP() << "this system cannot limit the size of files";
        }
    }
};

TEST_F(VXSettingManagerFailureTest, WithoutAnyPlaceForTheFileValuesStayInMemory)
{
    WriteFile(PathOf("file"), QByteArrayLiteral("in the way"));
    EXPECT_FALSE(m_store.Open(PathOf("file/settings.db")));
    EXPECT_EQ(m_failed.count(), 1);
    EXPECT_FALSE(m_failed.first().at(0).toString().isEmpty());
    EXPECT_EQ(m_setAside.count(), 0);

    m_store.SetUserValue(Section(), Field(1), Value(1, 5));
    EXPECT_EQ(m_store.GetUserValue(Section(), Field(1)), Value(1, 5));
    EXPECT_FALSE(m_store.SetUserValueSync(Section(), Field(2), Value(2, 5)));
    EXPECT_EQ(m_store.GetUserValue(Section(), Field(2)), Value(2, 5));
    EXPECT_FALSE(m_store.Flush());
    EXPECT_EQ(m_failed.count(), 1) << "told once";

    // A later opening elsewhere takes them along.
    EXPECT_TRUE(m_store.Open(m_file));
    EXPECT_TRUE(m_store.Flush());
    EXPECT_EQ(CountRows(), 2);
}

TEST_F(VXSettingManagerFailureTest, LockedFileFailsOnceAndTheNextWriteBringsEverything)
{
    ASSERT_TRUE(m_store.Open(m_file));
    RawDatabase other(m_file);
    other.Run(QStringLiteral("BEGIN EXCLUSIVE"));

    QElapsedTimer timer;
    timer.start();
    m_store.SetUserValue(Section(), Field(1), Value(1, 5));
    EXPECT_LT(timer.elapsed(), 2000) << "setting does not wait for the lock";
    EXPECT_EQ(m_store.GetUserValue(Section(), Field(1)), Value(1, 5));
    EXPECT_FALSE(m_store.Flush());
    EXPECT_TRUE(WaitForFailures(1));
    EXPECT_FALSE(m_store.SetUserValueSync(Section(), Field(2), Value(2, 5)));
    EXPECT_EQ(m_store.GetUserValue(Section(), Field(2)), Value(2, 5));

    other.Run(QStringLiteral("ROLLBACK"));
    EXPECT_TRUE(m_store.SetUserValueSync(Section(), Field(3), Value(3, 5)));
    EXPECT_EQ(CountRows(), 3);
    EXPECT_EQ(m_failed.count(), 1) << "one cause";
    EXPECT_EQ(m_setAside.count(), 0);
}

TEST_F(VXSettingManagerFailureTest, FileThatAnotherProgramKeepsToItselfIsNotTakenForDamaged)
{
    MakeStore(3, 10);
    {
        RawDatabase other(m_file);
        other.Run(QStringLiteral("PRAGMA locking_mode=EXCLUSIVE"));
        other.Run(QStringLiteral("BEGIN EXCLUSIVE"));
        EXPECT_FALSE(m_store.Open(m_file));
        EXPECT_EQ(m_failed.count(), 1);
        EXPECT_EQ(m_setAside.count(), 0);
        other.Run(QStringLiteral("ROLLBACK"));
    }
    m_store.Close();
    EXPECT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(CountValues(3, 10), 3);
}

TEST_F(VXSettingManagerDiskTest, WhatDoesNotFitOnTheDiskIsWrittenOnceItFits)
{
    ASSERT_TRUE(m_store.Open(m_file));
    ASSERT_TRUE(m_store.SetUserValueSync(Section(), Field(1), Value(1, 100)));
    const QString big = Value(2, 1024 * 1024);
    {
        const FileSizeLimit limit(262144);
        EXPECT_FALSE(m_store.SetUserValueSync(Section(), Field(2), big));
        EXPECT_TRUE(WaitForFailures(1));
        EXPECT_FALSE(m_store.Flush());
        EXPECT_EQ(m_store.GetUserValue(Section(), Field(2)), big);
    }
    EXPECT_TRUE(m_store.Flush());
    EXPECT_EQ(m_failed.count(), 1);
    EXPECT_EQ(m_setAside.count(), 0);
    m_store.Close();
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_store.GetUserValue(Section(), Field(1)), Value(1, 100));
    EXPECT_EQ(m_store.GetUserValue(Section(), Field(2)), big);
}

TEST_F(VXSettingManagerDiskTest, DiskThatIsFullFromTheStartGivesTheValuesAndTakesNone)
{
    MakeStore(3, 10);
    {
        const FileSizeLimit limit(4096);
        EXPECT_TRUE(m_store.Open(m_file));
        EXPECT_EQ(CountValues(3, 10), 3);
        EXPECT_FALSE(m_store.SetUserValueSync(Section(), Field(1), Value(1, 5)));
        EXPECT_TRUE(WaitForFailures(1));
    }
    EXPECT_TRUE(m_store.Flush());
    EXPECT_EQ(CountRows(), 4);
    EXPECT_EQ(m_failed.count(), 1);
    EXPECT_EQ(m_setAside.count(), 0);
}

TEST_F(VXSettingManagerDiskTest, DiskThatIsFullBesideALogThatAKillHasLeftGivesTheValues)
{
    MakeStore(3, 10);
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_TRUE(m_store.SetGlobalValueSync(Section(), Field(3), Value(3, 10)));
    const QByteArray log = ReadFile(m_file + QStringLiteral("-wal"));
    const QByteArray database = ReadFile(m_file);
    m_store.Close();
    WriteFile(m_file, database);
    WriteFile(m_file + QStringLiteral("-wal"), log);
    {
        const FileSizeLimit limit(4096);
        EXPECT_TRUE(m_store.Open(m_file));
        EXPECT_EQ(CountValues(4, 10), 4);
    }
    m_store.Close();
    EXPECT_EQ(m_setAside.count(), 0);
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(CountValues(4, 10), 4);
}

TEST_F(VXSettingManagerDiskTest, DamagedFileKeepsItsPlaceUntilThereIsRoomForAFreshOne)
{
    MakeStore(100, 300);
    const QByteArray damaged = ReadFile(m_file).left(20000);
    WriteFile(m_file, damaged);
    {
        const FileSizeLimit limit(8192);
        EXPECT_FALSE(m_store.Open(m_file));
        EXPECT_EQ(m_setAside.count(), 0);
        EXPECT_EQ(m_failed.count(), 1);
        m_store.Close();
    }
    EXPECT_EQ(ReadFile(m_file), damaged);
    EXPECT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_setAside.count(), 1);
    EXPECT_GT(CountValues(100, 300), 0);
    EXPECT_EQ(m_failed.count(), 1);
}

TEST_F(VXSettingManagerDiskTest, SameCauseIsToldAgainAfterAWriteThatSucceeded)
{
    ASSERT_TRUE(m_store.Open(m_file));
    for (int i = 1; i <= 2; ++i) {
        {
            const FileSizeLimit limit(4096);
            EXPECT_FALSE(m_store.SetUserValueSync(Section(), Field(i), Value(i, 100000)));
        }
        EXPECT_TRUE(m_store.Flush());
        EXPECT_TRUE(WaitForFailures(i));
    }
    EXPECT_EQ(m_failed.count(), 2);
}

TEST_F(VXSettingManagerDiskTest, UnchangedValueIsEnoughForANewTry)
{
    ASSERT_TRUE(m_store.Open(m_file));
    {
        const FileSizeLimit limit(4096);
        EXPECT_FALSE(m_store.SetUserValueSync(Section(), Field(1), Value(1, 100000)));
    }
    EXPECT_TRUE(m_store.SetUserValueSync(Section(), Field(1), Value(1, 100000)));
    EXPECT_EQ(CountRows(), 1);
}

TEST_F(VXSettingManagerDiskTest, NewValueIsNotUndoneByTheOldOneThatWaits)
{
    ASSERT_TRUE(m_store.Open(m_file));
    {
        const FileSizeLimit limit(4096);
        EXPECT_FALSE(m_store.SetUserValueSync(Section(), Field(1), Value(1, 100000)));
    }
    EXPECT_TRUE(m_store.SetUserValueSync(Section(), Field(1), QStringLiteral("new")));
    m_store.Close();
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_store.GetUserValue(Section(), Field(1)), QStringLiteral("new"));
}

TEST_F(VXSettingManagerDiskTest, FailureOfTheLastWriteIsToldByTheTimeTheStoreIsClosed)
{
    ASSERT_TRUE(m_store.Open(m_file));
    const FileSizeLimit limit(4096);
    m_store.SetUserValue(Section(), Field(1), Value(1, 100000));
    m_store.Close();
    EXPECT_EQ(m_failed.count(), 1);
}

} // namespace
