#include "RawDatabase.h"
#include "VXSettingManagerFixture.h"

#include "core/TLGlobalData.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtTest/QTest>

namespace {

const QString RecordSection = QStringLiteral("USER_SETTING_RECOVER_SECTION");
const QString RecordField = QStringLiteral("USER_SETTING_RECOVER_FIELD1");
const QString SomeValue = QStringLiteral("value");

class VXSettingManagerTest : public VXSettingManagerFixture
{
protected:
    static void SignIn(const char* pin)
    {
        TLGlobalData::Instance()->SetUser(QString::fromUtf8(pin), QString());
    }

    // As a module does that is unloaded after it has set a value: its constant texts are gone then.
    void SetTextsThatGoAway()
    {
        QVector<ushort> memory{'u', 's', 'f', 'v'};
        const auto text = [&memory](int i) {
            return QString::fromRawData(reinterpret_cast<const QChar*>(memory.constData() + i), 1);
        };
        TLGlobalData::Instance()->SetUser(text(0), QString());
        m_store.SetUserValue(text(1), text(2), text(3));
        m_store.SetGlobalValue(text(1), text(2), text(3));
        TLGlobalData::Instance()->ClearUser();
        memory.fill('?');
    }

    void ExpectTextsThatWentAway()
    {
        SignIn("u");
        EXPECT_EQ(m_store.GetUserValue(QStringLiteral("s"), QStringLiteral("f")), QStringLiteral("v"));
        EXPECT_EQ(m_store.GetGlobalValue(QStringLiteral("s"), QStringLiteral("f")), QStringLiteral("v"));
    }

    QVariant StoredValue() const
    {
        return RawDatabase(m_file).Run(QStringLiteral("SELECT value FROM setting"));
    }
};

TEST_F(VXSettingManagerTest, ValueThatWasNeverSetIsEmpty)
{
    EXPECT_TRUE(m_store.Open(m_file));
    EXPECT_TRUE(m_store.GetUserValue(RecordSection, RecordField).isEmpty());
    EXPECT_TRUE(m_store.GetGlobalValue(RecordSection, RecordField).isEmpty());
    EXPECT_EQ(m_setAside.count(), 0);
    EXPECT_EQ(m_failed.count(), 0);
}

TEST_F(VXSettingManagerTest, MissingFoldersAreMade)
{
    const QString deep = PathOf("a/b/settings.db");
    EXPECT_TRUE(m_store.Open(deep));
    EXPECT_TRUE(m_store.SetGlobalValueSync(RecordSection, RecordField, SomeValue));
    EXPECT_TRUE(QFileInfo(deep).isFile());
}

TEST_F(VXSettingManagerTest, ValueIsVisibleAtOnceAndAfterReopening)
{
    ASSERT_TRUE(m_store.Open(m_file));
    m_store.SetUserValue(RecordSection, RecordField, SomeValue);
    EXPECT_EQ(m_store.GetUserValue(RecordSection, RecordField), SomeValue);
    m_store.Close();
    EXPECT_TRUE(m_store.GetUserValue(RecordSection, RecordField).isEmpty());
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_store.GetUserValue(RecordSection, RecordField), SomeValue);
}

TEST_F(VXSettingManagerTest, EmptyTextIsStoredAsAValue)
{
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_TRUE(m_store.SetUserValueSync(RecordSection, RecordField, QString()));
    EXPECT_EQ(StoredValue(), QVariant(QString(QLatin1String(""))));
    EXPECT_TRUE(m_store.SetUserValueSync(RecordSection, RecordField, SomeValue));
    EXPECT_TRUE(m_store.SetUserValueSync(RecordSection, RecordField, QString()));
    EXPECT_EQ(RawDatabase(m_file).Run(QStringLiteral("SELECT count(*) FROM setting")).toInt(), 1);
    m_store.Close();
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_TRUE(m_store.GetUserValue(RecordSection, RecordField).isEmpty());
}

TEST_F(VXSettingManagerTest, SectionAndFieldAreTwoNames)
{
    ASSERT_TRUE(m_store.Open(m_file));
    m_store.SetGlobalValue(QStringLiteral("ab"), QStringLiteral("c"), QStringLiteral("1"));
    m_store.SetGlobalValue(QStringLiteral("a"), QStringLiteral("bc"), QStringLiteral("2"));
    m_store.Close();
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_store.GetGlobalValue(QStringLiteral("ab"), QStringLiteral("c")), QStringLiteral("1"));
    EXPECT_EQ(m_store.GetGlobalValue(QStringLiteral("a"), QStringLiteral("bc")), QStringLiteral("2"));
}

TEST_F(VXSettingManagerTest, EachUserHasValuesOfTheirOwn)
{
    ASSERT_TRUE(m_store.Open(m_file));
    SignIn("anna");
    m_store.SetUserValue(RecordSection, RecordField, QStringLiteral("of anna"));
    SignIn("bert");
    EXPECT_TRUE(m_store.GetUserValue(RecordSection, RecordField).isEmpty());
    m_store.SetUserValue(RecordSection, RecordField, QStringLiteral("of bert"));
    TLGlobalData::Instance()->ClearUser();
    EXPECT_TRUE(m_store.GetUserValue(RecordSection, RecordField).isEmpty());
    m_store.Close();

    ASSERT_TRUE(m_store.Open(m_file));
    SignIn("anna");
    EXPECT_EQ(m_store.GetUserValue(RecordSection, RecordField), QStringLiteral("of anna"));
    SignIn("bert");
    EXPECT_EQ(m_store.GetUserValue(RecordSection, RecordField), QStringLiteral("of bert"));
}

TEST_F(VXSettingManagerTest, UserAtTheMomentOfTheCallCountsNotTheOneAtTheWrite)
{
    ASSERT_TRUE(m_store.Open(m_file));
    SignIn("anna");
    m_store.SetUserValue(RecordSection, RecordField, SomeValue);
    SignIn("bert");
    ASSERT_TRUE(m_store.Flush());
    EXPECT_EQ(RawDatabase(m_file).Run(QStringLiteral("SELECT user FROM setting")).toString(),
              QStringLiteral("anna"));
}

TEST_F(VXSettingManagerTest, ValueOfNoUserIsNotThatOfTheEmptyPin)
{
    ASSERT_TRUE(m_store.Open(m_file));
    m_store.SetGlobalValue(RecordSection, RecordField, QStringLiteral("global"));
    EXPECT_TRUE(m_store.GetUserValue(RecordSection, RecordField).isEmpty());
    m_store.SetUserValue(RecordSection, RecordField, QStringLiteral("of nobody"));
    m_store.Close();
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_store.GetGlobalValue(RecordSection, RecordField), QStringLiteral("global"));
    EXPECT_EQ(m_store.GetUserValue(RecordSection, RecordField), QStringLiteral("of nobody"));
    SignIn("anna");
    EXPECT_EQ(m_store.GetGlobalValue(RecordSection, RecordField), QStringLiteral("global"));
}

TEST_F(VXSettingManagerTest, SyncReturnsWhenAnotherProgramCanReadTheValue)
{
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_TRUE(m_store.SetUserValueSync(RecordSection, RecordField, SomeValue));
    EXPECT_EQ(StoredValue().toString(), SomeValue);
}

TEST_F(VXSettingManagerTest, SyncOfAValueThatStillWaitsWritesIt)
{
    ASSERT_TRUE(m_store.Open(m_file));
    m_store.SetUserValue(RecordSection, RecordField, SomeValue);
    EXPECT_TRUE(m_store.SetUserValueSync(RecordSection, RecordField, SomeValue));
    EXPECT_EQ(StoredValue().toString(), SomeValue);
}

TEST_F(VXSettingManagerTest, ValueIsWrittenWithoutAnyFlush)
{
    ASSERT_TRUE(m_store.Open(m_file));
    RawDatabase reader(m_file);
    m_store.SetUserValue(RecordSection, RecordField, SomeValue);
    EXPECT_TRUE(QTest::qWaitFor(
        [&reader] { return reader.Run(QStringLiteral("SELECT count(*) FROM setting")).toInt() == 1; },
        10000));
}

TEST_F(VXSettingManagerTest, ThousandValuesOfOneKeyCostFewWritesAndTheLastCounts)
{
    ASSERT_TRUE(m_store.Open(m_file));
    ASSERT_TRUE(m_store.SetUserValueSync(RecordSection, RecordField, SomeValue));
    const qint64 logBefore = QFileInfo(m_file + QStringLiteral("-wal")).size();
    for (int i = 1; i <= 1000; ++i) {
        m_store.SetUserValue(RecordSection, RecordField, QString::number(i));
        EXPECT_EQ(m_store.GetUserValue(RecordSection, RecordField), QString::number(i));
    }
    ASSERT_TRUE(m_store.Flush());
    EXPECT_EQ(StoredValue().toString(), QStringLiteral("1000"));
    const qint64 pagesWritten = (QFileInfo(m_file + QStringLiteral("-wal")).size() - logBefore) / 4096;
    EXPECT_GE(pagesWritten, 1);
    EXPECT_LE(pagesWritten, 100) << "one page for each write of a value";
}

TEST_F(VXSettingManagerTest, UnchangedValueIsNotWrittenAgain)
{
    ASSERT_TRUE(m_store.Open(m_file));
    ASSERT_TRUE(m_store.SetUserValueSync(RecordSection, RecordField, SomeValue));
    RawDatabase reader(m_file);
    const QVariant before = reader.Run(QStringLiteral("PRAGMA data_version"));
    EXPECT_TRUE(m_store.SetUserValueSync(RecordSection, RecordField, SomeValue));
    EXPECT_EQ(reader.Run(QStringLiteral("PRAGMA data_version")), before);
    EXPECT_TRUE(m_store.SetUserValueSync(RecordSection, RecordField, QStringLiteral("other")));
    EXPECT_NE(reader.Run(QStringLiteral("PRAGMA data_version")), before);
}

TEST_F(VXSettingManagerTest, ClosingWritesWhatWaits)
{
    ASSERT_TRUE(m_store.Open(m_file));
    m_store.SetUserValue(RecordSection, RecordField, SomeValue);
    m_store.Close();
    EXPECT_EQ(StoredValue().toString(), SomeValue);
    EXPECT_FALSE(QFileInfo::exists(m_file + QStringLiteral("-wal")));
}

TEST_F(VXSettingManagerTest, ClosingTwiceAndReopeningAnOpenStoreAreHarmless)
{
    ASSERT_TRUE(m_store.Open(m_file));
    m_store.SetUserValue(RecordSection, RecordField, SomeValue);
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_store.GetUserValue(RecordSection, RecordField), SomeValue);
    m_store.Close();
    m_store.Close();
    EXPECT_EQ(StoredValue().toString(), SomeValue);
}

TEST_F(VXSettingManagerTest, AnotherFileHasNoneOfTheValues)
{
    ASSERT_TRUE(m_store.Open(m_file));
    m_store.SetUserValue(RecordSection, RecordField, SomeValue);
    ASSERT_TRUE(m_store.Open(PathOf("other.db")));
    EXPECT_TRUE(m_store.GetUserValue(RecordSection, RecordField).isEmpty());
}

TEST_F(VXSettingManagerTest, ValueSetBeforeOpeningIsWrittenIntoTheFile)
{
    ASSERT_TRUE(m_store.Open(m_file));
    m_store.SetUserValue(RecordSection, RecordField, QStringLiteral("old"));
    m_store.Close();

    m_store.SetUserValue(RecordSection, RecordField, SomeValue);
    EXPECT_EQ(m_store.GetUserValue(RecordSection, RecordField), SomeValue);
    EXPECT_FALSE(m_store.Flush());
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_store.GetUserValue(RecordSection, RecordField), SomeValue);
    EXPECT_TRUE(m_store.Flush());
    EXPECT_EQ(StoredValue().toString(), SomeValue);
}

TEST_F(VXSettingManagerTest, TenMegabytesSurvive)
{
    const QString big(5 * 1024 * 1024, QChar(0x4e2d));
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_TRUE(m_store.SetUserValueSync(RecordSection, RecordField, big));
    m_store.Close();
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_store.GetUserValue(RecordSection, RecordField), big);
}

TEST_F(VXSettingManagerTest, AwkwardTextsSurviveAsNameAndAsValue)
{
    const QStringList texts{QStringLiteral("'; DROP TABLE setting; --"), QStringLiteral("a\nb\t\"c\""),
                            QString(QLatin1String("nul")) + QChar(0) + QLatin1String("inside"),
                            QString::fromUtf8("\xf0\x9f\x98\x80 中"),
                            // a byte order mark, and what is no character at all
                            QString(QChar(0xfeff)) + QLatin1String("bom"),
                            QString(QLatin1String("none")) + QChar(0xfffe) + QChar(0xffff), QString()};
    ASSERT_TRUE(m_store.Open(m_file));
    for (const QString& text : texts) {
        m_store.SetGlobalValue(text, text, text + QLatin1Char('!'));
    }
    m_store.Close();
    ASSERT_TRUE(m_store.Open(m_file));
    for (const QString& text : texts) {
        EXPECT_EQ(m_store.GetGlobalValue(text, text), text + QLatin1Char('!')) << text.toStdString();
    }
}

TEST_F(VXSettingManagerTest, TextThatIsNoValidUtf16IsMendedAndNotTakenForDamaged)
{
    const QString half = QStringLiteral("a") + QChar(0xd800) + QStringLiteral("b");
    ASSERT_TRUE(m_store.Open(m_file));
    m_store.SetGlobalValue(RecordSection, half, half);
    EXPECT_EQ(m_store.GetGlobalValue(RecordSection, half), half);
    m_store.Close();
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(m_valueDamaged.count(), 0);
    const QString mended = QString::fromUtf8(half.toUtf8());
    EXPECT_EQ(m_store.GetGlobalValue(RecordSection, mended), mended);
}

TEST_F(VXSettingManagerTest, TextsThatGoAwayAfterTheCallAreKept)
{
    ASSERT_TRUE(m_store.Open(m_file));
    SetTextsThatGoAway();
    ExpectTextsThatWentAway();
    m_store.Close();
    ASSERT_TRUE(m_store.Open(m_file));
    ExpectTextsThatWentAway();
}

TEST_F(VXSettingManagerTest, TextsThatGoAwayBeforeTheStoreIsOpenedAreKept)
{
    SetTextsThatGoAway();
    ASSERT_TRUE(m_store.Open(m_file));
    ExpectTextsThatWentAway();
    m_store.Close();
    ASSERT_TRUE(m_store.Open(m_file));
    ExpectTextsThatWentAway();
}

TEST_F(VXSettingManagerTest, ManyKeysAreWrittenTogether)
{
    MakeStore(2000, 20);
    ASSERT_TRUE(m_store.Open(m_file));
    EXPECT_EQ(CountValues(2000, 20), 2000);
}

TEST_F(VXSettingManagerTest, ValuesInTheLogOfAKilledProcessAreFound)
{
    ASSERT_TRUE(m_store.Open(m_file));
    ASSERT_TRUE(m_store.SetUserValueSync(RecordSection, RecordField, SomeValue));
    // What a kill leaves: the database and its log, as they are now.
    const QString left = PathOf("left.db");
    ASSERT_TRUE(QFile::copy(m_file, left));
    ASSERT_TRUE(QFile::copy(m_file + QStringLiteral("-wal"), left + QStringLiteral("-wal")));
    ASSERT_TRUE(m_store.Open(left));
    EXPECT_EQ(m_store.GetUserValue(RecordSection, RecordField), SomeValue);
    EXPECT_EQ(m_setAside.count(), 0);
}

TEST_F(VXSettingManagerTest, FileIsReadableByItsOwnerOnly)
{
    ASSERT_TRUE(m_store.Open(m_file));
    ASSERT_TRUE(m_store.SetUserValueSync(RecordSection, RecordField, SomeValue));
#ifdef Q_OS_UNIX
    const QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_FALSE(QFile::permissions(m_file) & others);
    EXPECT_FALSE(QFile::permissions(m_file + QStringLiteral("-wal")) & others);
#endif
    EXPECT_TRUE(QFileInfo(m_file).isReadable());
}

} // namespace
