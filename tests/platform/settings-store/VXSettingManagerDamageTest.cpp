#include "RawDatabase.h"
#include "VXSettingManagerFixture.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QRandomGenerator>
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

    // Opens a store with these bytes, which MakeStore has made and something has damaged. Whatever was done
    // to them: it takes values and keeps them, what it has is right, and what it tells it tells once.
    void ExpectStoreThatWorks(const QByteArray& database, const QByteArray& log)
    {
        const QString file = PathOf("damaged.db");
        WriteFile(file, database);
        if (!log.isEmpty()) {
            WriteFile(file + QStringLiteral("-wal"), log);
        }
        const int setAsideBefore = m_setAside.count();
        const int toldBefore = m_valueDamaged.count();
        ASSERT_TRUE(m_store.Open(file));
        m_isSetAside = m_setAside.count() > setAsideBefore;
        m_valuesTold = m_valueDamaged.count() - toldBefore;
        m_kept = CountValues(400, 300);
        ASSERT_TRUE(m_store.SetGlobalValueSync(Section(), Field(1000), QStringLiteral("new")));
        m_store.Close();

        ASSERT_TRUE(m_store.Open(file));
        EXPECT_EQ(m_store.GetGlobalValue(Section(), Field(1000)), QStringLiteral("new"));
        EXPECT_EQ(CountValues(400, 300), m_kept);
        m_store.Close();
        EXPECT_EQ(m_setAside.count(), setAsideBefore + int(m_isSetAside));
        EXPECT_EQ(m_valueDamaged.count(), toldBefore + m_valuesTold);
        EXPECT_EQ(m_failed.count(), 0);
        EXPECT_TRUE(!m_isSetAside || QFileInfo::exists(m_setAside.last().at(0).toString()));
        ASSERT_TRUE(QFile::remove(file));
    }

    // The log that a kill leaves of the store after two more values.
    QByteArray MakeLog()
    {
        EXPECT_TRUE(m_store.Open(m_file));
        for (const int i : {200, 201}) {
            EXPECT_TRUE(m_store.SetGlobalValueSync(Section(), Field(i), Value(i, 300)));
        }
        QByteArray log = ReadFile(m_file + QStringLiteral("-wal"));
        m_store.Close();
        return log;
    }

    // What came of the last store that was expected to work.
    bool m_isSetAside = false;
    int m_valuesTold = 0;
    int m_kept = 0;
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

TEST_F(VXSettingManagerDamageTest, EmptiedFileIsToldSinceAFreshOneIsNeverEmpty)
{
    WriteFile(m_file, QByteArray());
    EXPECT_TRUE(m_store.Open(m_file));
    ASSERT_NO_FATAL_FAILURE(ExpectFreshStore());
    EXPECT_TRUE(ReadFile(m_setAside.first().at(0).toString()).isEmpty());
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

TEST_F(VXSettingManagerDamageTest, OfAFileWithoutItsBeginningTheRestIsKept)
{
    MakeStore(400, 500);
    const QByteArray whole = ReadFile(m_file);
    int told = 0;
    for (const int missing : {16, 100, 4096}) { // SQLite's name, the whole head, the list of tables too
        SCOPED_TRACE(missing);
        const QString file = PathOf("headless.db");
        WriteFile(file, QByteArray(missing, '\0') + whole.mid(missing));
        EXPECT_TRUE(m_store.Open(file));
        EXPECT_EQ(m_setAside.count(), ++told);
        EXPECT_EQ(CountValues(400, 500), 400);
        m_store.Close();
        EXPECT_TRUE(m_store.Open(file));
        EXPECT_EQ(CountValues(400, 500), 400);
        m_store.Close();
        EXPECT_TRUE(QFile::remove(file));
    }
    EXPECT_EQ(m_setAside.count(), told);
    EXPECT_EQ(m_failed.count(), 0);
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
    for (const int page : {pages / 4, pages * 3 / 4}) {
        bytes.replace(page * 4096, 4096, QByteArray(4096, '\xaa'));
    }
    WriteFile(m_file, bytes);
    EXPECT_TRUE(m_store.Open(m_file));
    EXPECT_GE(CountValues(400, 500), 400 - 16);
    ASSERT_NO_FATAL_FAILURE(ExpectFreshStore());
}

TEST_F(VXSettingManagerDamageTest, CutAtAnyLengthItIsToldAndTheRestIsKept)
{
    MakeStore(100, 300);
    const QByteArray whole = ReadFile(m_file);
    QList<int> lengths{0, 1, 15, 16, 99, 100, 511, 512, 513};
    for (int length = 1000; length < whole.size(); length += 3001) {
        lengths.append(length);
    }
    lengths.append(whole.size() - 1);
    for (const int length : lengths) {
        SCOPED_TRACE(length);
        ASSERT_NO_FATAL_FAILURE(ExpectStoreThatWorks(whole.left(length), QByteArray()));
        EXPECT_TRUE(m_isSetAside || m_valuesTold > 0) << "a part of a database is never whole";
    }
    EXPECT_GE(m_kept, 90) << "of the longest part nearly all";
}

TEST_F(VXSettingManagerDamageTest, LogCutAtAnyLengthCostsOnlyWhatItHeld)
{
    MakeStore(100, 300);
    const QByteArray whole = ReadFile(m_file);
    const QByteArray log = MakeLog();
    int kept = 100;
    for (int length = 0; length < log.size(); length += 997) {
        SCOPED_TRACE(length);
        ASSERT_NO_FATAL_FAILURE(ExpectStoreThatWorks(whole, log.left(length)));
        EXPECT_FALSE(m_isSetAside) << "the end of a log may be missing after any kill";
        EXPECT_GE(m_kept, kept);
        kept = m_kept;
    }
    EXPECT_EQ(kept, 101) << "without its end the log lacks the last value";
}

TEST_F(VXSettingManagerDamageTest, DatabaseCutBesideItsLogIsToldAndBothAreKept)
{
    MakeStore(100, 300);
    const QByteArray whole = ReadFile(m_file);
    const QByteArray log = MakeLog();
    for (const int length : {0, 1, 100, 511, 512, 4096, 9000}) {
        SCOPED_TRACE(length);
        ASSERT_NO_FATAL_FAILURE(ExpectStoreThatWorks(whole.left(length), log));
        ASSERT_TRUE(m_isSetAside);
        EXPECT_EQ(ReadFile(m_setAside.last().at(0).toString()), whole.left(length));
        EXPECT_EQ(ReadFile(m_setAside.last().at(0).toString() + QStringLiteral("-wal")), log);
    }
}

TEST_F(VXSettingManagerDamageTest, EmptiedDatabaseIsReadFromItsLogWhenThatHoldsAllOfIt)
{
    ASSERT_TRUE(m_store.Open(m_file));
    for (int i = 0; i < 20; ++i) {
        m_store.SetGlobalValue(Section(), Field(i), Value(i, 300));
    }
    ASSERT_TRUE(m_store.Flush());
    RawDatabase(m_file).Run(QStringLiteral("VACUUM")); // every page, through the log
    const QByteArray log = ReadFile(m_file + QStringLiteral("-wal"));
    m_store.Close();
    WriteFile(m_file, QByteArray());
    WriteFile(m_file + QStringLiteral("-wal"), log);
    EXPECT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(CountValues(20, 300), 20);
    ASSERT_NO_FATAL_FAILURE(ExpectFreshStore());
}

TEST_F(VXSettingManagerDamageTest, LogWithoutItsDatabaseIsKeptAsideAndNotTakenForThatOfTheFreshOne)
{
    MakeStore(100, 300);
    const QByteArray log = MakeLog();
    ASSERT_TRUE(QFile::remove(m_file));
    WriteFile(m_file + QStringLiteral("-wal"), log);
    EXPECT_TRUE(m_store.Open(m_file));
    ASSERT_NO_FATAL_FAILURE(ExpectFreshStore());
    EXPECT_EQ(ReadFile(m_setAside.first().at(0).toString()), log);
}

TEST_F(VXSettingManagerDamageTest, FlippedBytesAnywhereLeaveAStoreThatWorks)
{
    MakeStore(60, 300);
    const QByteArray sound = ReadFile(m_file);
    int setAside = 0;
    for (int position = 0; position < sound.size(); position += 797) {
        SCOPED_TRACE(position);
        QByteArray bytes = sound;
        for (int i = position; i < position + 16 && i < bytes.size(); ++i) {
            bytes[i] = char(~bytes.at(i));
        }
        ASSERT_NO_FATAL_FAILURE(ExpectStoreThatWorks(bytes, QByteArray()));
        setAside += int(m_isSetAside);
    }
    EXPECT_GT(setAside, 0);
}

TEST_F(VXSettingManagerDamageTest, SingleFlippedBitsNeverGiveAWrongValue)
{
    MakeStore(60, 300);
    const QByteArray sound = ReadFile(m_file);
    QRandomGenerator random(20261121);
    int told = 0;
    for (int i = 0; i < 150; ++i) {
        QByteArray bytes = sound;
        // Half of them in the first page, which says how all others are to be read.
        const int position = random.bounded(i % 2 == 0 ? 4096 : bytes.size());
        const int bit = random.bounded(8);
        SCOPED_TRACE(testing::Message() << "byte " << position << " bit " << bit);
        bytes[position] = char(bytes.at(position) ^ (1 << bit));
        ASSERT_NO_FATAL_FAILURE(ExpectStoreThatWorks(bytes, QByteArray()));
        EXPECT_GE(m_kept + m_valuesTold, 60 - 14) << "a bit costs the values of its page at most";
        told += int(m_isSetAside || m_valuesTold > 0);
    }
    EXPECT_GT(told, 25) << "the rest hit what holds nothing";
}

TEST_F(VXSettingManagerDamageTest, FlippedBytesInTheLogNeverGiveAWrongValue)
{
    MakeStore(100, 300);
    const QByteArray whole = ReadFile(m_file);
    const QByteArray log = MakeLog();
    QRandomGenerator random(3);
    for (int i = 0; i < 100; ++i) {
        QByteArray bytes = log;
        const int position = random.bounded(i % 2 == 0 ? 64 : bytes.size()); // its head, or anywhere
        SCOPED_TRACE(position);
        bytes[position] = char(bytes.at(position) ^ (1 << random.bounded(8)));
        ASSERT_NO_FATAL_FAILURE(ExpectStoreThatWorks(whole, bytes));
        EXPECT_GE(m_kept, 100) << "what is in the database stays";
    }
}

TEST_F(VXSettingManagerDamageTest, HugeCountsAreNotBelieved)
{
    MakeStore(60, 300);
    const QByteArray sound = ReadFile(m_file);
    struct Place
    {
        const char* what;
        int position;
        int size;
    };
    const int page = 4096;
    const Place places[] = {
        {"page size", 16, 2},
        {"versions for writing and reading", 18, 2},
        {"version for writing", 18, 1},
        {"file change counter and size in pages", 24, 8},
        {"size in pages", 28, 4},
        {"first free page and number of them", 32, 8},
        {"format of the schema", 44, 4},
        {"size of the page cache", 48, 4},
        {"largest root page", 52, 4},
        {"encoding of the texts", 56, 4},
        {"version of the store", 60, 4},
        {"cells of the list of tables", 103, 2},
        {"beginning of its content", 105, 2},
        {"rightmost page of the table", page + 8, 4},
        {"cells of the index", 2 * page + 3, 2},
        {"first cell of a page", 5 * page, 64},
        {"sizes in the last row of a page", 6 * page - 1000, 16},
    };
    for (const char filler : {'\xff', '\x7f', '\x81'}) {
        for (const Place& place : places) {
            SCOPED_TRACE(testing::Message() << place.what << " " << int(filler));
            QByteArray bytes = sound;
            bytes.replace(place.position, place.size, QByteArray(place.size, filler));
            ASSERT_NO_FATAL_FAILURE(ExpectStoreThatWorks(bytes, QByteArray()));
            EXPECT_GE(m_kept + m_valuesTold, 60 - 14);
        }
    }
}

TEST_F(VXSettingManagerDamageTest, WithoutTheListOfItsPagesTheTableIsLostButNotTheFile)
{
    MakeStore(60, 300);
    for (const char filler : {'\xff', '\x7f', '\0'}) {
        QByteArray bytes = ReadFile(m_file);
        bytes.replace(4096, 12, QByteArray(12, filler));
        ASSERT_NO_FATAL_FAILURE(ExpectStoreThatWorks(bytes, QByteArray()));
        ASSERT_TRUE(m_isSetAside);
        EXPECT_EQ(ReadFile(m_setAside.last().at(0).toString()), bytes);
    }
}

TEST_F(VXSettingManagerDamageTest, NoDatabaseAtAllIsToldAndKept)
{
    QRandomGenerator random(4);
    QByteArray noise(20000, '\0');
    for (char& byte : noise) {
        byte = char(random.bounded(256));
    }
    QByteArray headOnly = QByteArrayLiteral("SQLite format 3");
    headOnly.append('\0');
    for (const QByteArray& bytes :
         {noise, headOnly + noise, QByteArray(8192, '\0'), QByteArray("{\"a\":1}").repeated(1000)}) {
        ASSERT_NO_FATAL_FAILURE(ExpectStoreThatWorks(bytes, QByteArray()));
        ASSERT_TRUE(m_isSetAside);
        EXPECT_EQ(ReadFile(m_setAside.last().at(0).toString()), bytes);
        EXPECT_EQ(m_kept, 0);
    }
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

TEST_F(VXSettingManagerDamageTest, WholeFileThatDidNotGetItsNameYetGetsIt)
{
    MakeStore(20, 300);
    ASSERT_TRUE(QFile::rename(m_file, m_file + QStringLiteral(".new")));
    EXPECT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(CountValues(20, 300), 20);
    EXPECT_FALSE(QFile::exists(m_file + QStringLiteral(".new")));
}

TEST_F(VXSettingManagerDamageTest, HalfMadeFileThatDidNotGetItsNameIsMadeAgain)
{
    MakeStore(20, 300);
    const QByteArray whole = ReadFile(m_file);
    for (const int length : {0, 100, 512, 4096, 9000}) {
        SCOPED_TRACE(length);
        QFile::remove(m_file);
        WriteFile(m_file + QStringLiteral(".new"), whole.left(length));
        ASSERT_TRUE(m_store.Open(m_file));
        EXPECT_TRUE(m_store.SetGlobalValueSync(Section(), Field(1), Value(1, 300)));
        m_store.Close();
    }
    EXPECT_EQ(m_setAside.count(), 0) << "nobody ever had anything in it";
    EXPECT_EQ(m_failed.count(), 0);
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

    for (int i = 0; i < count; i += 2) {
        m_store.SetGlobalValue(Section(), Field(i), Value(i, size) + QLatin1Char('+'));
    }
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
