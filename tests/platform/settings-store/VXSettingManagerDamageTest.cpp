#include "RawDatabase.h"
#include "VXSettingManagerFixture.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtTest/QTest>

namespace {

class VXSettingManagerDamageTest : public VXSettingManagerFixture
{
protected:
    // The store must be in use again: one set aside and told about, no failure, values kept on disk.
    void ExpectFreshStore()
    {
        ASSERT_EQ(m_setAside.count(), 1);
        EXPECT_EQ(m_failed.count(), 0);
        const QString aside = m_setAside.first().at(0).toString();
        EXPECT_TRUE(QFileInfo::exists(aside)) << aside.toStdString();
        EXPECT_TRUE(aside.startsWith(m_file + QStringLiteral(".damaged-"))) << aside.toStdString();
        EXPECT_FALSE(m_setAside.first().at(1).toString().isEmpty());
        EXPECT_TRUE(m_store.SetGlobalValueSync(QStringLiteral("after"), QStringLiteral("damage"),
                                               QStringLiteral("works")));
        m_store.Close();
        EXPECT_TRUE(m_store.Open(m_file));
        EXPECT_EQ(m_store.GetGlobalValue(QStringLiteral("after"), QStringLiteral("damage")),
                  QStringLiteral("works"));
        EXPECT_EQ(m_setAside.count(), 1) << "the fresh file is sound";
    }
};

TEST_F(VXSettingManagerDamageTest, GarbageIsSetAsideUntouched)
{
    const QByteArray garbage = QByteArray("this is no database. ").repeated(500);
    WriteFile(m_file, garbage);
    EXPECT_TRUE(m_store.Open(m_file));
    ASSERT_NO_FATAL_FAILURE(ExpectFreshStore());
    EXPECT_EQ(ReadFile(m_setAside.first().at(0).toString()), garbage);
}

TEST_F(VXSettingManagerDamageTest, ShortGarbageIsSetAside)
{
    WriteFile(m_file, QByteArrayLiteral("x"));
    EXPECT_TRUE(m_store.Open(m_file));
    ASSERT_NO_FATAL_FAILURE(ExpectFreshStore());
}

TEST_F(VXSettingManagerDamageTest, EmptyFileIsAFreshStore)
{
    WriteFile(m_file, QByteArray());
    EXPECT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_setAside.count(), 0);
    EXPECT_TRUE(m_store.SetGlobalValueSync(Section(), Field(1), Value(1, 5)));
}

TEST_F(VXSettingManagerDamageTest, OfATruncatedFileTheRestIsKept)
{
    MakeStore(400, 500);
    const QByteArray whole = ReadFile(m_file);
    WriteFile(m_file, whole.left(whole.size() / 2));
    EXPECT_TRUE(m_store.Open(m_file));
    EXPECT_GT(CountValues(400, 500), 100);
    ASSERT_NO_FATAL_FAILURE(ExpectFreshStore());
    EXPECT_GT(CountValues(400, 500), 100) << "what was kept is on disk again";
}

TEST_F(VXSettingManagerDamageTest, OfAFileWithoutItsBeginningNothingIsKept)
{
    MakeStore(400, 500);
    const QByteArray whole = ReadFile(m_file);
    WriteFile(m_file, QByteArray(4096, '\0') + whole.mid(4096));
    EXPECT_TRUE(m_store.Open(m_file));
    ASSERT_NO_FATAL_FAILURE(ExpectFreshStore());
}

TEST_F(VXSettingManagerDamageTest, AroundADestroyedPageEverythingIsKept)
{
    MakeStore(400, 500);
    QByteArray bytes = ReadFile(m_file);
    const int page = bytes.size() / 4096 / 2;
    bytes.replace(page * 4096, 4096, QByteArray(4096, '\xaa'));
    WriteFile(m_file, bytes);
    EXPECT_TRUE(m_store.Open(m_file));
    EXPECT_GE(CountValues(400, 500), 400 - 8) << "a page holds eight of them";
    ASSERT_NO_FATAL_FAILURE(ExpectFreshStore());
    EXPECT_GE(CountValues(400, 500), 400 - 8);
}

TEST_F(VXSettingManagerDamageTest, BetweenTwoDestroyedPagesEverythingIsKept)
{
    MakeStore(400, 500);
    QByteArray bytes = ReadFile(m_file);
    const int pages = bytes.size() / 4096;
    for (const int page : {pages / 4, pages * 3 / 4})
        bytes.replace(page * 4096, 4096, QByteArray(4096, '\xaa'));
    WriteFile(m_file, bytes);
    EXPECT_TRUE(m_store.Open(m_file));
    EXPECT_GE(CountValues(400, 500), 400 - 16);
    ASSERT_NO_FATAL_FAILURE(ExpectFreshStore());
}

TEST_F(VXSettingManagerDamageTest, FlippedBytesAnywhereLeaveAStoreThatWorks)
{
    MakeStore(60, 300);
    const QByteArray sound = ReadFile(m_file);
    for (int position = 0; position < sound.size(); position += 389) {
        QByteArray bytes = sound;
        for (int i = position; i < position + 16 && i < bytes.size(); ++i)
            bytes[i] = char(~bytes.at(i));
        const QString file = PathOf("flipped.db");
        WriteFile(file, bytes);
        ASSERT_TRUE(m_store.Open(file)) << position;
        ASSERT_TRUE(m_store.SetGlobalValueSync(Section(), Field(7), QStringLiteral("new"))) << position;
        m_store.Close();
        const int setAsideBefore = m_setAside.count();
        ASSERT_TRUE(m_store.Open(file)) << position;
        ASSERT_EQ(m_store.GetGlobalValue(Section(), Field(7)), QStringLiteral("new")) << position;
        ASSERT_EQ(m_setAside.count(), setAsideBefore) << position;
        m_store.Close();
    }
    EXPECT_GT(m_setAside.count(), 0);
    EXPECT_EQ(m_failed.count(), 0);
}

TEST_F(VXSettingManagerDamageTest, ValueThatIsOnlyInTheLogOfADamagedDatabaseIsKept)
{
    MakeStore(50, 500);
    ASSERT_TRUE(m_store.Open(m_file));
    ASSERT_TRUE(m_store.SetGlobalValueSync(Section(), Field(1000), QStringLiteral("only in the log")));
    const QByteArray log = ReadFile(m_file + QStringLiteral("-wal"));
    QByteArray database = ReadFile(m_file);
    m_store.Close();
    database.replace(4 * 4096, 4096, QByteArray(4096, '\xaa')); // a page that the log does not hold
    WriteFile(m_file, database);
    WriteFile(m_file + QStringLiteral("-wal"), log);

    EXPECT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_store.GetGlobalValue(Section(), Field(1000)), QStringLiteral("only in the log"));
    ASSERT_NO_FATAL_FAILURE(ExpectFreshStore());
    EXPECT_EQ(m_store.GetGlobalValue(Section(), Field(1000)), QStringLiteral("only in the log"));
}

TEST_F(VXSettingManagerDamageTest, FolderInPlaceOfTheFileIsSetAside)
{
    ASSERT_TRUE(QDir().mkpath(m_file));
    WriteFile(m_file + QStringLiteral("/inside"), QByteArrayLiteral("kept"));
    EXPECT_TRUE(m_store.Open(m_file));
    ASSERT_NO_FATAL_FAILURE(ExpectFreshStore());
    EXPECT_EQ(ReadFile(m_setAside.first().at(0).toString() + QStringLiteral("/inside")),
              QByteArrayLiteral("kept"));
}

TEST_F(VXSettingManagerDamageTest, DatabaseOfAnotherProgramIsSetAsideUntouched)
{
    RawDatabase(m_file).Run(QStringLiteral("CREATE TABLE theirs (x)"));
    EXPECT_TRUE(m_store.Open(m_file));
    ASSERT_NO_FATAL_FAILURE(ExpectFreshStore());
    EXPECT_EQ(RawDatabase(m_setAside.first().at(0).toString())
                  .Run(QStringLiteral("SELECT name FROM sqlite_master"))
                  .toString(),
              QStringLiteral("theirs"));
}

TEST_F(VXSettingManagerDamageTest, TableWithoutItsKeyIsReadIntoAFreshOne)
{
    {
        RawDatabase database(m_file);
        database.Run(QStringLiteral("CREATE TABLE setting (scope, user, section, field, value)"));
        database.Run(QStringLiteral("INSERT INTO setting VALUES (0, '', 'SECTION', 'FIELD3', 'value 3;')"));
        database.Run(QStringLiteral("PRAGMA user_version=1"));
    }
    EXPECT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_store.GetGlobalValue(Section(), Field(3)), QStringLiteral("value 3;"));
    ASSERT_NO_FATAL_FAILURE(ExpectFreshStore());
}

TEST_F(VXSettingManagerDamageTest, LayoutOfALaterVersionIsSetAside)
{
    MakeStore(3, 10);
    RawDatabase(m_file).Run(QStringLiteral("PRAGMA user_version=2"));
    EXPECT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(CountValues(3, 10), 3);
    ASSERT_NO_FATAL_FAILURE(ExpectFreshStore());
}

TEST_F(VXSettingManagerDamageTest, SecondDamageIsSetAsideUnderAnotherName)
{
    for (int i = 0; i < 2; ++i) {
        WriteFile(m_file, QByteArrayLiteral("garbage"));
        EXPECT_TRUE(m_store.Open(m_file));
        m_store.Close();
    }
    ASSERT_EQ(m_setAside.count(), 2);
    EXPECT_NE(m_setAside.at(0).at(0), m_setAside.at(1).at(0));
    EXPECT_TRUE(QFileInfo::exists(m_setAside.at(0).at(0).toString()));
    EXPECT_TRUE(QFileInfo::exists(m_setAside.at(1).at(0).toString()));
}

TEST_F(VXSettingManagerDamageTest, DamageWhileTheStoreIsOpenLosesNothing)
{
    // More than SQLite keeps of a file in memory, so that it has to read damaged pages.
    constexpr int count = 800;
    constexpr int size = 10000;
    MakeStore(count, size);
    ASSERT_TRUE(m_store.Open(m_file));
    QByteArray bytes = ReadFile(m_file);
    WriteFile(m_file, bytes.left(4096) + QByteArray(bytes.size() - 4096, '\xaa'));

    for (int i = 0; i < count; i += 2)
        m_store.SetGlobalValue(Section(), Field(i), Value(i, size) + QLatin1Char('+'));
    EXPECT_TRUE(m_store.Flush());
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_setAside.count() == 1; }, 10000));
    m_store.Close();
    ASSERT_TRUE(m_store.Open(m_file));
    for (int i = 0; i < count; ++i) {
        const QString expected = i % 2 == 0 ? Value(i, size) + QLatin1Char('+') : Value(i, size);
        ASSERT_EQ(m_store.GetGlobalValue(Section(), Field(i)), expected) << i;
    }
    EXPECT_EQ(m_setAside.count(), 1);
    EXPECT_EQ(m_failed.count(), 0);
}

} // namespace
