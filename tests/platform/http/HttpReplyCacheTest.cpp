#include "http/HttpReplyCache.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

class HttpReplyCacheTest : public ::testing::Test
{
protected:
    HttpReplyCacheTest() : folder(temporary.filePath(QStringLiteral("profile/replies"))), cache(folder) {}

    QStringList Files() const { return QDir(folder).entryList(QDir::Files | QDir::Hidden); }
    QString OnlyFile() const { return QDir(folder).filePath(Files().value(0)); }

    static QByteArray Read(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    static void Write(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    QTemporaryDir temporary;
    QString folder;
    HttpReplyCache cache;
    const QString key = QStringLiteral("user\u4e2d|method|{}");
};

TEST_F(HttpReplyCacheTest, GivesBackWhatWasSaved)
{
    EXPECT_TRUE(cache.Load(key).isNull());
    EXPECT_FALSE(QDir(folder).exists());
    const QByteArray reply("{\"code\":\"0\"}\0binary\xff", 20);
    EXPECT_TRUE(cache.Save(key, reply));
    EXPECT_EQ(cache.Load(key), reply);
    EXPECT_EQ(HttpReplyCache(folder).Load(key), reply);
    EXPECT_EQ(Files().size(), 1);
}

TEST_F(HttpReplyCacheTest, AnEmptyReplyIsNotAnAbsentOne)
{
    EXPECT_TRUE(cache.Save(key, QByteArray("")));
    EXPECT_FALSE(cache.Load(key).isNull());
    EXPECT_TRUE(cache.Load(key).isEmpty());
}

TEST_F(HttpReplyCacheTest, ReplacesTheReplyOfTheSameKeyOnly)
{
    EXPECT_TRUE(cache.Save(key, "old"));
    EXPECT_TRUE(cache.Save(QStringLiteral("other"), "others"));
    EXPECT_TRUE(cache.Save(key, "new"));
    EXPECT_EQ(cache.Load(key), "new");
    EXPECT_EQ(cache.Load(QStringLiteral("other")), "others");
    EXPECT_TRUE(cache.Load(QStringLiteral("third")).isNull());
    EXPECT_EQ(Files().size(), 2);
}

TEST_F(HttpReplyCacheTest, AFileCutAtAnyByteCountsAsAbsent)
{
    ASSERT_TRUE(cache.Save(key, "a reply"));
    const QByteArray whole = Read(OnlyFile());
    for (int size = 0; size < whole.size(); ++size) {
        Write(OnlyFile(), whole.left(size));
        EXPECT_TRUE(cache.Load(key).isNull()) << size;
    }
    Write(OnlyFile(), whole + 'x');
    EXPECT_TRUE(cache.Load(key).isNull());
    Write(OnlyFile(), whole);
    EXPECT_EQ(cache.Load(key), "a reply");
}

TEST_F(HttpReplyCacheTest, AFileWithAnyByteChangedCountsAsAbsent)
{
    ASSERT_TRUE(cache.Save(key, "a reply"));
    const QByteArray whole = Read(OnlyFile());
    for (int at = 0; at < whole.size(); ++at) {
        QByteArray changed = whole;
        changed[at] = static_cast<char>(changed[at] ^ 0x20);
        Write(OnlyFile(), changed);
        EXPECT_TRUE(cache.Load(key).isNull()) << at;
    }
}

TEST_F(HttpReplyCacheTest, AReplyUnderAnotherKeysNameIsNotServed)
{
    ASSERT_TRUE(cache.Save(key, "mine"));
    const QByteArray mine = Read(OnlyFile());
    cache.Clear();
    ASSERT_TRUE(cache.Save(QStringLiteral("other"), "others"));
    Write(OnlyFile(), mine);
    EXPECT_TRUE(cache.Load(QStringLiteral("other")).isNull());
}

TEST_F(HttpReplyCacheTest, KeepsTheTwoHundredNewest)
{
    const QDateTime start = QDateTime::currentDateTimeUtc().addSecs(-1000);
    const auto date = [start](const QString& path, int seconds) {
        QFile file(path);
        return file.open(QIODevice::ReadWrite) &&
               file.setFileTime(start.addSecs(seconds), QFile::FileModificationTime);
    };
    for (int i = 0; i < 3; ++i) {
        const QStringList before = Files();
        ASSERT_TRUE(cache.Save(QString::number(i), QByteArray::number(i)));
        for (const QString& name : Files()) {
            // The one saved first is used again last.
            EXPECT_TRUE(before.contains(name) || date(QDir(folder).filePath(name), i == 0 ? 500 : i));
        }
    }
    // Every save waits for the disk, so what only has to count is put there as files.
    for (int i = 3; i < 200; ++i) {
        const QString path = QDir(folder).filePath(QStringLiteral("%1.reply").arg(i));
        Write(path, "counts");
        ASSERT_TRUE(date(path, i));
    }
    ASSERT_EQ(Files().size(), 200);
    ASSERT_TRUE(cache.Save(QStringLiteral("one more"), "more"));
    EXPECT_EQ(Files().size(), 200);
    EXPECT_TRUE(cache.Load(QStringLiteral("1")).isNull());
    EXPECT_EQ(cache.Load(QStringLiteral("0")), "0");
    EXPECT_EQ(cache.Load(QStringLiteral("2")), "2");
    EXPECT_EQ(cache.Load(QStringLiteral("one more")), "more");
}

TEST_F(HttpReplyCacheTest, ClearTakesItsOwnFilesOnly)
{
    ASSERT_TRUE(cache.Save(key, "a reply"));
    Write(OnlyFile() + QStringLiteral(".AbCdEf"), "left behind by an end in the middle of a write");
    Write(QDir(folder).filePath(QStringLiteral("notes.txt")), "somebody else's");
    cache.Clear();
    EXPECT_EQ(Files(), QStringList{QStringLiteral("notes.txt")});
    EXPECT_TRUE(cache.Load(key).isNull());
    cache.Clear();
}

TEST_F(HttpReplyCacheTest, ClearWithoutAFolderIsNoProblem)
{
    cache.Clear();
    EXPECT_FALSE(QDir(folder).exists());
}

TEST_F(HttpReplyCacheTest, AFolderThatCannotBeMadeIsReported)
{
    ASSERT_TRUE(QDir().mkpath(temporary.filePath(QStringLiteral("profile"))));
    Write(folder, "a file where the folder should be");
    EXPECT_FALSE(cache.Save(key, "a reply"));
    EXPECT_TRUE(cache.Load(key).isNull());
}

TEST_F(HttpReplyCacheTest, AReplyThatCannotBeStoredLeavesTheOlderOne)
{
    ASSERT_TRUE(cache.Save(key, "old"));
    EXPECT_FALSE(cache.Save(key, QByteArray(9 * 1024 * 1024, 'x')));
    EXPECT_EQ(cache.Load(key), "old");
}

#ifdef Q_OS_UNIX
TEST_F(HttpReplyCacheTest, OnlyTheOwnerMayReadIt)
{
    ASSERT_TRUE(cache.Save(key, "a reply"));
    const QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_EQ(QFile::permissions(OnlyFile()) & others, QFile::Permissions());
}
#endif
