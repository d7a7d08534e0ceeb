#include "RawDatabase.h"
#include "VXSettingManagerFixture.h"

#include "core/TLGlobalData.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace {

class VXSettingManagerVersionTest : public VXSettingManagerFixture
{
protected:
    // Makes a copy of a sample file: what each version of the store wrote, byte for byte, never edited.
    void TakeSample(const char* name)
    {
        const QString sample = QStringLiteral(TL_SETTINGS_STORE_DATA "/") + QString::fromUtf8(name);
        ASSERT_TRUE(QFile::copy(sample, m_file)) << sample.toStdString();
        ASSERT_TRUE(QFile::setPermissions(m_file, QFile::ReadOwner | QFile::WriteOwner));
    }

    void ExpectValuesOfTheSample()
    {
        const QString section = QStringLiteral("USER_SETTING_RECOVER_SECTION");
        const QString field = QStringLiteral("USER_SETTING_RECOVER_FIELD1");
        EXPECT_EQ(m_store.GetGlobalValue(QStringLiteral("window"), QStringLiteral("geometry")),
                  QStringLiteral("10,20,800,600"));
        EXPECT_EQ(m_store.GetUserValue(QStringLiteral("of"), QStringLiteral("nobody")),
                  QStringLiteral("line\nbreak"));
        TLGlobalData::Instance()->SetUser(QStringLiteral("anna"), QString());
        EXPECT_EQ(m_store.GetUserValue(section, field),
                  QString::fromUtf8("{\"tabs\":[{\"title\":\"caf\xc3\xa9 \xe4\xb8\xad\xe6\x96\x87 "
                                    "\xf0\x9f\x98\x80\"}]}"));
        EXPECT_EQ(m_store.GetUserValue(QStringLiteral("long"), QStringLiteral("text")),
                  QStringLiteral("0123456789").repeated(2000));
        TLGlobalData::Instance()->SetUser(QStringLiteral("bert"), QString());
        EXPECT_EQ(m_store.GetUserValue(section, field), QStringLiteral("of bert"));
        TLGlobalData::Instance()->ClearUser();
    }

    void ExpectNothingWasTold()
    {
        EXPECT_EQ(m_setAside.count(), 0);
        EXPECT_EQ(m_valueDamaged.count(), 0);
        EXPECT_EQ(m_failed.count(), 0);
    }

    // As RawDatabase, for one statement.
    QVariant Ask(const char* statement) const
    {
        return RawDatabase(m_file).Run(QString::fromUtf8(statement));
    }
};

TEST_F(VXSettingManagerVersionTest, SampleOfVersion1IsReadAndBroughtUpToDate)
{
    ASSERT_NO_FATAL_FAILURE(TakeSample("settings-v1.sqlite"));
    ASSERT_EQ(Ask("PRAGMA user_version").toInt(), 1);
    ASSERT_TRUE(m_store.Open(m_file));
    ExpectValuesOfTheSample();
    m_store.Close();
    EXPECT_EQ(Ask("PRAGMA user_version").toInt(), 2);
    EXPECT_EQ(Ask("SELECT count(*) FROM setting WHERE length(checksum) = 8").toInt(), 6);

    ASSERT_TRUE(m_store.Open(m_file));
    ExpectValuesOfTheSample();
    ExpectNothingWasTold();
    EXPECT_TRUE(m_store.SetGlobalValueSync(QStringLiteral("window"), QStringLiteral("geometry"),
                                           QStringLiteral("other")));
    m_store.Close();
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_store.GetGlobalValue(QStringLiteral("window"), QStringLiteral("geometry")),
              QStringLiteral("other"));
    ExpectNothingWasTold();
}

TEST_F(VXSettingManagerVersionTest, SampleOfVersion2IsRead)
{
    ASSERT_NO_FATAL_FAILURE(TakeSample("settings-v2.sqlite"));
    ASSERT_TRUE(m_store.Open(m_file));
    ExpectValuesOfTheSample();
    EXPECT_EQ(m_store.GetGlobalValue(QStringLiteral("awkward"), QStringLiteral("marks")),
              QString(QChar(0xfeff)) + QLatin1Char('x') + QChar(0xffff));
    ExpectNothingWasTold();
}

TEST_F(VXSettingManagerVersionTest, ChecksumsGivenToVersion1TellDamageAsAllOthers)
{
    ASSERT_NO_FATAL_FAILURE(TakeSample("settings-v1.sqlite"));
    ASSERT_TRUE(m_store.Open(m_file));
    m_store.Close();
    Ask("UPDATE setting SET value = 'damaged' WHERE field = 'geometry'");
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_valueDamaged.count(), 1);
    EXPECT_TRUE(m_store.GetGlobalValue(QStringLiteral("window"), QStringLiteral("geometry")).isEmpty());
}

TEST_F(VXSettingManagerVersionTest, Version1ThatAnotherProgramHasLockedIsReadAndBroughtUpToDateLater)
{
    ASSERT_NO_FATAL_FAILURE(TakeSample("settings-v1.sqlite"));
    {
        RawDatabase other(m_file);
        other.Run(QStringLiteral("BEGIN IMMEDIATE"));
        ASSERT_TRUE(m_store.Open(m_file));
        ExpectValuesOfTheSample();
        ExpectNothingWasTold();
        other.Run(QStringLiteral("ROLLBACK"));
        EXPECT_EQ(other.Run(QStringLiteral("PRAGMA user_version")).toInt(), 1);
    }
    EXPECT_TRUE(m_store.SetGlobalValueSync(Section(), Field(1), Value(1, 5)));
    m_store.Close();
    EXPECT_EQ(Ask("PRAGMA user_version").toInt(), 2);
    ASSERT_TRUE(m_store.Open(m_file));
    ExpectValuesOfTheSample();
    EXPECT_EQ(CountValues(2, 5), 1);
    ExpectNothingWasTold();
}

TEST_F(VXSettingManagerVersionTest, DamagedVersion1GivesWhatCanBeRead)
{
    ASSERT_NO_FATAL_FAILURE(TakeSample("settings-v1.sqlite"));
    QByteArray bytes = ReadFile(m_file);
    bytes.replace(0, 100, QByteArray(100, '\0')); // SQLite's own head of the file
    WriteFile(m_file, bytes);
    ASSERT_TRUE(m_store.Open(m_file));
    ExpectValuesOfTheSample();
    EXPECT_EQ(m_setAside.count(), 1);
    EXPECT_EQ(m_valueDamaged.count(), 0) << "there were no checksums";
}

TEST_F(VXSettingManagerVersionTest, LaterVersionIsSetAsideWholeAndItsReadableValuesAreTakenAlong)
{
    MakeStore(3, 10);
    for (const char* statement :
         {"CREATE TABLE more (x)", "ALTER TABLE setting ADD COLUMN more",
          "UPDATE setting SET checksum = x'00' WHERE field = 'FIELD1'", "PRAGMA user_version = 3"}) {
        Ask(statement);
    }
    const QByteArray whole = ReadFile(m_file);

    ASSERT_TRUE(m_store.Open(m_file));
    ASSERT_EQ(m_setAside.count(), 1);
    const QString aside = m_setAside.first().at(0).toString();
    EXPECT_TRUE(aside.startsWith(m_file + QStringLiteral(".later-version-"))) << aside.toStdString();
    EXPECT_TRUE(m_setAside.first().at(1).toString().contains(QLatin1String("later version")));
    EXPECT_EQ(ReadFile(aside), whole);
    EXPECT_EQ(CountValues(3, 10), 2);
    EXPECT_EQ(m_valueDamaged.count(), 0) << "a checksum that is not known is no damage";
    EXPECT_TRUE(m_store.Flush());
    m_store.Close();

    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(CountValues(3, 10), 2);
    EXPECT_EQ(m_setAside.count(), 1) << "told once";
    EXPECT_EQ(m_failed.count(), 0);
}

TEST_F(VXSettingManagerVersionTest, VersionsThatNeverWereAreSetAsideAndReadAllTheSame)
{
    int told = 0;
    for (const char* statement : {"PRAGMA user_version = 0", "PRAGMA user_version = -1",
                                  "PRAGMA user_version = 2147483647", "PRAGMA user_version = 1"}) {
        SCOPED_TRACE(statement);
        MakeStore(3, 10);
        Ask(statement);
        ASSERT_TRUE(m_store.Open(m_file));
        EXPECT_EQ(m_setAside.count(), ++told);
        EXPECT_EQ(CountValues(3, 10), 3);
        m_store.Close();
    }
    EXPECT_EQ(m_valueDamaged.count(), 0);
    EXPECT_EQ(m_failed.count(), 0);
}

} // namespace
