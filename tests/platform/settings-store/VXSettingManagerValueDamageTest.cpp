#include "RawDatabase.h"
#include "VXSettingManagerFixture.h"

#include "core/TLGlobalData.h"

#include <QtCore/QFile>
#include <QtCore/QThread>

namespace {

class VXSettingManagerValueDamageTest : public VXSettingManagerFixture
{
protected:
    void Run(const QString& statement) { RawDatabase(m_file).Run(statement); }
    QVariant Ask(const char* statement) { return RawDatabase(m_file).Run(QString::fromUtf8(statement)); }

    void DamageField(int n)
    {
        Run(QStringLiteral("UPDATE setting SET value = 'damaged' WHERE field = '%1'").arg(Field(n)));
    }
};

TEST_F(VXSettingManagerValueDamageTest, FlippedByteInAValueIsToldAndTheValueReadsAsNotThere)
{
    MakeStore(10, 30);
    QByteArray bytes = ReadFile(m_file);
    const int position = bytes.indexOf(Value(3, 30).toUtf8());
    ASSERT_GT(position, 0);
    bytes[position + 8] = char(bytes.at(position + 8) ^ 1);
    WriteFile(m_file, bytes);

    QThread* thread = nullptr;
    const auto connection = QObject::connect(&m_store, &VXSettingManager::SigValueDamaged, &m_store,
                                             [&thread] { thread = QThread::currentThread(); });
    ASSERT_TRUE(m_store.Open(m_file));
    QObject::disconnect(connection);
    ASSERT_EQ(m_valueDamaged.count(), 1);
    EXPECT_EQ(thread, m_store.thread());
    EXPECT_EQ(m_valueDamaged.first(), (QList<QVariant>{QString(), Section(), Field(3)}));
    EXPECT_TRUE(m_store.GetGlobalValue(Section(), Field(3)).isEmpty());
    EXPECT_EQ(CountValues(10, 30), 9) << "all others are there";
    EXPECT_EQ(m_setAside.count(), 0) << "the file is sound";
    EXPECT_EQ(m_failed.count(), 0);
}

TEST_F(VXSettingManagerValueDamageTest, OriginalIsKeptAndToldOnce)
{
    MakeStore(3, 10);
    DamageField(1);
    ASSERT_TRUE(m_store.Open(m_file));
    m_store.Close();
    EXPECT_EQ(Ask("SELECT section || '/' || field || '/' || value FROM damaged_setting").toString(),
              QStringLiteral("SECTION/FIELD1/damaged"));
    EXPECT_EQ(Ask("SELECT length(checksum) FROM damaged_setting").toInt(), 8);
    EXPECT_FALSE(Ask("SELECT found FROM damaged_setting").toString().isEmpty());

    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_valueDamaged.count(), 1);
    EXPECT_TRUE(m_store.GetGlobalValue(Section(), Field(1)).isEmpty());
}

TEST_F(VXSettingManagerValueDamageTest, UserOfTheValueIsTold)
{
    ASSERT_TRUE(m_store.Open(m_file));
    for (const char* pin : {"anna", "bert"}) {
        TLGlobalData::Instance()->SetUser(QString::fromUtf8(pin), QString());
        m_store.SetUserValue(Section(), Field(1), QString::fromUtf8(pin));
    }
    m_store.Close();
    Run(QStringLiteral("UPDATE setting SET value = 'bert' WHERE user = 'anna'"));
    ASSERT_TRUE(m_store.Open(m_file));
    ASSERT_EQ(m_valueDamaged.count(), 1);
    EXPECT_EQ(m_valueDamaged.first().at(0).toString(), QStringLiteral("anna"));
    EXPECT_EQ(m_store.GetUserValue(Section(), Field(1)), QStringLiteral("bert"));
    TLGlobalData::Instance()->SetUser(QStringLiteral("anna"), QString());
    EXPECT_TRUE(m_store.GetUserValue(Section(), Field(1)).isEmpty())
        << "a value of another user is a damaged one, however well it reads";
}

TEST_F(VXSettingManagerValueDamageTest, NewValueTakesThePlaceOfADamagedOne)
{
    MakeStore(3, 10);
    DamageField(1);
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_TRUE(m_store.SetGlobalValueSync(Section(), Field(1), Value(1, 10)));
    m_store.Close();
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(CountValues(3, 10), 3);
    EXPECT_EQ(m_valueDamaged.count(), 1);
}

TEST_F(VXSettingManagerValueDamageTest, EveryPartOfARowIsCovered)
{
    int told = 0;
    for (const char* change :
         {"user = 'x'", "section = 'x'", "field = 'x'", "value = ''", "value = 5", "value = x'00ff'",
          "value = replace(hex(zeroblob(1000000)), '0', 'x')", "scope = 1", "scope = -9223372036854775808",
          "scope = 'x'", "checksum = x''", "checksum = 0", "checksum = zeroblob(1000000)",
          "section = 'SECTIONF', field = 'IELD1'"}) {
        SCOPED_TRACE(change);
        MakeStore(3, 10);
        Run(QStringLiteral("UPDATE setting SET %1 WHERE field = 'FIELD1'").arg(QString::fromUtf8(change)));
        ASSERT_TRUE(m_store.Open(m_file));
        EXPECT_EQ(m_valueDamaged.count(), ++told);
        EXPECT_EQ(CountValues(3, 10), 2);
        m_store.Close();
    }
    EXPECT_EQ(m_setAside.count(), 0);
    EXPECT_EQ(m_failed.count(), 0);
}

TEST_F(VXSettingManagerValueDamageTest, OnlyTheNewestOriginalsAreKept)
{
    MakeStore(50, 10);
    Run(QStringLiteral("UPDATE setting SET value = 'damaged ' || field"));
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_valueDamaged.count(), 50);
    m_store.Close();
    EXPECT_EQ(Ask("SELECT count(*) FROM damaged_setting").toInt(), 32);
    EXPECT_EQ(Ask("SELECT count(*) FROM setting").toInt(), 0);

    MakeStore(1, 10);
    Run(QStringLiteral("UPDATE setting SET value = 'the newest'"));
    ASSERT_TRUE(m_store.Open(m_file));
    m_store.Close();
    EXPECT_EQ(Ask("SELECT count(*) FROM damaged_setting").toInt(), 32);
    EXPECT_EQ(Ask("SELECT value FROM damaged_setting ORDER BY id DESC").toString(),
              QStringLiteral("the newest"));
}

TEST_F(VXSettingManagerValueDamageTest, BigOriginalsAreKeptWithinABoundAndTheNewestAlways)
{
    MakeStore(3, 10);
    Run(QStringLiteral("UPDATE setting SET value = replace(hex(zeroblob(1500000)), '0', 'x')"));
    ASSERT_TRUE(m_store.Open(m_file));
    m_store.Close();
    EXPECT_EQ(Ask("SELECT count(*) FROM damaged_setting").toInt(), 1);

    MakeStore(1, 10);
    Run(QStringLiteral("UPDATE setting SET value = replace(hex(zeroblob(3000000)), '0', 'y')"));
    ASSERT_TRUE(m_store.Open(m_file));
    m_store.Close();
    EXPECT_EQ(Ask("SELECT count(*) FROM damaged_setting").toInt(), 1);
    EXPECT_EQ(Ask("SELECT substr(value, 1, 1) FROM damaged_setting").toString(), QStringLiteral("y"));
}

TEST_F(VXSettingManagerValueDamageTest, DamagedValueInADamagedFileIsToldToo)
{
    MakeStore(400, 500);
    DamageField(5);
    QByteArray bytes = ReadFile(m_file);
    const int damagedPage = bytes.indexOf(Field(5).toUtf8() + "damaged") / 4096;
    const int page = bytes.size() / 4096 / 2 + int(damagedPage == bytes.size() / 4096 / 2);
    bytes.replace(page * 4096, 4096, QByteArray(4096, '\xaa'));
    WriteFile(m_file, bytes);
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_setAside.count(), 1);
    ASSERT_EQ(m_valueDamaged.count(), 1);
    EXPECT_EQ(m_valueDamaged.first().at(2).toString(), Field(5));
    EXPECT_TRUE(m_store.GetGlobalValue(Section(), Field(5)).isEmpty());
    EXPECT_GE(CountValues(400, 500), 400 - 9);
    m_store.Close();
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_valueDamaged.count(), 1);
}

TEST_F(VXSettingManagerValueDamageTest, StoreWithoutThePlaceForOriginalsGetsOne)
{
    MakeStore(3, 10);
    DamageField(1);
    Run(QStringLiteral("DROP TABLE damaged_setting"));
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_valueDamaged.count(), 1);
    m_store.Close();
    EXPECT_EQ(Ask("SELECT value FROM damaged_setting").toString(), QStringLiteral("damaged"));
}

TEST_F(VXSettingManagerValueDamageTest, OriginalThatCannotBeMovedIsNoReasonToFail)
{
    MakeStore(3, 10);
    DamageField(1);
    RawDatabase other(m_file);
    other.Run(QStringLiteral("BEGIN IMMEDIATE"));
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_valueDamaged.count(), 1);
    EXPECT_EQ(CountValues(3, 10), 2);
    other.Run(QStringLiteral("ROLLBACK"));
    EXPECT_TRUE(m_store.SetGlobalValueSync(Section(), Field(1), Value(1, 10)));
    m_store.Close();
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(CountValues(3, 10), 3);
    EXPECT_EQ(m_valueDamaged.count(), 1);
}

} // namespace
