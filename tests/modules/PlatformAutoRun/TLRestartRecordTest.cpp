#include "TLRestartRecord.h"

#include "TabRecordTest.h"

#include <QtCore/QDataStream>
#include <QtCore/QtEndian>

#include <gtest/gtest.h>

namespace {

class TLRestartRecordTest : public TabRecordTest
{
protected:
    static QByteArray SampleBytes() { return QByteArray::fromBase64(ReadSample("restart-record-v1.txt")); }

    static TLRestartRecord FromBytes(const QByteArray& bytes)
    {
        return TLRestartRecord::FromText(QString::fromLatin1(bytes.toBase64()));
    }

    static QByteArray Number(quint32 number)
    {
        QByteArray bytes(sizeof(number), Qt::Uninitialized);
        qToBigEndian(number, bytes.data());
        return bytes;
    }

    static void ExpectEmpty(const TLRestartRecord& record, const QByteArray& what)
    {
        EXPECT_EQ(record.routerUrls, QStringList()) << what.constData();
        EXPECT_EQ(record.belongType, QString()) << what.constData();
    }

    const QStringList sampleUrls{
        QStringLiteral("tl://browser/open?url=https%3A%2F%2Forders.example.com%2F"),
        QStringLiteral("tl://plugin/open?code=stock"),
        QStringLiteral("tl://browser/open?url=https%3A%2F%2Fhome.example.com%2F%3Fq%3D%E4%B8%AD"),
        QString::fromUtf8("tl://plugin/open?code=\xE8\xB4\xA6\xE6\x9C\xAC")};
};

} // namespace

TEST_F(TLRestartRecordTest, StoredSampleOfVersion1IsReadInFull)
{
    const TLRestartRecord record =
        TLRestartRecord::FromText(QString::fromLatin1(ReadSample("restart-record-v1.txt")));
    EXPECT_EQ(record.routerUrls, sampleUrls);
    EXPECT_EQ(record.belongType, QStringLiteral("merchant"));
}

TEST_F(TLRestartRecordTest, StoredSampleOfVersion1IsWrittenBackByteByByte)
{
    TLRestartRecord record;
    record.routerUrls = sampleUrls;
    record.belongType = QStringLiteral("merchant");
    EXPECT_EQ(record.ToText().toLatin1(), ReadSample("restart-record-v1.txt"));
}

TEST_F(TLRestartRecordTest, IsReadFromItsLiteralBytes)
{
    const QByteArray bytes = QByteArray::fromHex("00000002" // two URLs
                                                 "00000004"
                                                 "00610062" // "ab"
                                                 "00000002"
                                                 "4e2d" // one Chinese character
                                                 "00000002"
                                                 "006d"); // belong type "m"
    const TLRestartRecord record = FromBytes(bytes);
    const QStringList expected{QStringLiteral("ab"), QString(QChar(0x4e2d))};
    EXPECT_EQ(record.routerUrls, expected);
    EXPECT_EQ(record.belongType, QStringLiteral("m"));
    EXPECT_EQ(record.ToText(), QString::fromLatin1(bytes.toBase64()));
}

TEST_F(TLRestartRecordTest, WrittenAndReadAgainItHasTheSameUrlsInTheSameOrder)
{
    TLRestartRecord record;
    record.routerUrls = QStringList{QStringLiteral("tl://z"), QStringLiteral("tl://a"),
                                    QStringLiteral("tl://z"), QString(), QString(300000, QChar(0x8d26))};
    record.belongType = QString::fromUtf8("\xF0\x9F\x9B\x92");
    const TLRestartRecord again = TLRestartRecord::FromText(record.ToText());
    EXPECT_EQ(again.routerUrls, record.routerUrls);
    EXPECT_EQ(again.belongType, record.belongType);
}

TEST_F(TLRestartRecordTest, SoundBytesAreReadAsTheStreamItselfReadsThem)
{
    for (const QStringList& urls :
         {QStringList(), QStringList{QString()}, QStringList{QString(QLatin1String(""))}, sampleUrls}) {
        for (const QString& belongType :
             {QString(), QString(QLatin1String("")), QStringLiteral("merchant")}) {
            QByteArray bytes;
            QDataStream writer(&bytes, QIODevice::WriteOnly);
            writer << urls << belongType;

            QDataStream stream(bytes);
            QStringList readUrls;
            QString readBelongType;
            stream >> readUrls >> readBelongType;
            const TLRestartRecord record = FromBytes(bytes);
            EXPECT_EQ(record.routerUrls, readUrls);
            EXPECT_EQ(record.belongType, readBelongType);
            EXPECT_EQ(record.belongType.isNull(), readBelongType.isNull());
        }
    }
}

TEST_F(TLRestartRecordTest, EveryStreamVersionSinceQt4WritesTheSameRecord)
{
    for (int version = QDataStream::Qt_4_0; version <= QDataStream::Qt_DefaultCompiledVersion; ++version) {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream.setVersion(version);
        stream << sampleUrls << QStringLiteral("merchant");
        EXPECT_EQ(bytes, SampleBytes()) << version;
    }
}

TEST_F(TLRestartRecordTest, BytesAfterTheBelongTypeAreIgnored)
{
    const TLRestartRecord record = FromBytes(SampleBytes() + QByteArray("of a later version"));
    EXPECT_EQ(record.routerUrls, sampleUrls);
    EXPECT_EQ(record.belongType, QStringLiteral("merchant"));
}

TEST_F(TLRestartRecordTest, Base64ThatDecodesToNothingIsAnEmptyRecord)
{
    for (const char* text : {"", "=", "==", "===="}) {
        ExpectEmpty(TLRestartRecord::FromText(QString::fromLatin1(text)), text);
    }
}

TEST_F(TLRestartRecordTest, TextThatIsNotBase64IsAnEmptyRecord)
{
    const QString sample = QString::fromLatin1(ReadSample("restart-record-v1.txt"));
    ExpectEmpty(TLRestartRecord::FromText(QStringLiteral("not base64!")), "a sentence");
    ExpectEmpty(TLRestartRecord::FromText(QString::fromUtf8("\xE8\xB4\xA6\xE6\x9C\xAC")), "Chinese");
    ExpectEmpty(TLRestartRecord::FromText(QStringLiteral("{\"routerUrls\":[]}")), "JSON");
    for (int i = 0; i < sample.size(); ++i) {
        ExpectEmpty(TLRestartRecord::FromText(QString(sample).insert(i, QLatin1Char('*'))),
                    QByteArray::number(i));
    }
}

TEST_F(TLRestartRecordTest, CutAtAnyByteItHasNoBelongTypeAndAllOrNoneOfItsUrls)
{
    const QByteArray sample = SampleBytes();
    const int belongTypeSize = 4 + 2 * 8;
    for (int length = 0; length < sample.size(); ++length) {
        const TLRestartRecord record = FromBytes(sample.left(length));
        EXPECT_EQ(record.belongType, QString()) << length;
        EXPECT_EQ(record.routerUrls, length < sample.size() - belongTypeSize ? QStringList() : sampleUrls)
            << length;
    }
}

TEST_F(TLRestartRecordTest, TextCutAnywhereIsNotTakenForAnotherRecord)
{
    const QString sample = QString::fromLatin1(ReadSample("restart-record-v1.txt"));
    for (int length = 0; length < sample.size(); ++length) {
        const TLRestartRecord record = TLRestartRecord::FromText(sample.left(length));
        EXPECT_TRUE(record.routerUrls.isEmpty() || record.routerUrls == sampleUrls) << length;
        EXPECT_TRUE(record.belongType.isEmpty() || record.belongType == QStringLiteral("merchant")) << length;
    }
}

TEST_F(TLRestartRecordTest, AnyByteFlippedItIsReadAsTheStreamItselfReadsIt)
{
    const QByteArray sample = SampleBytes();
    for (int i = 0; i < sample.size(); ++i) {
        for (const int mask : {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80, 0xFF}) {
            QByteArray damaged = sample;
            damaged[i] = static_cast<char>(damaged.at(i) ^ mask);
            const TLRestartRecord record = FromBytes(damaged);

            QStringList readUrls;
            const bool countIsPossible = qFromBigEndian<quint32>(damaged.constData()) < 1000;
            if (countIsPossible) { // else the stream's own reading would take the memory for all of them
                QDataStream stream(damaged);
                stream >> readUrls;
            }
            EXPECT_EQ(record.routerUrls, readUrls) << i << " " << mask;
            EXPECT_TRUE(record.routerUrls.isEmpty() || record.routerUrls.size() <= sampleUrls.size() + 1)
                << i << " " << mask;
        }
    }
}

TEST_F(TLRestartRecordTest, CountThatTheBytesCannotHoldIsAnEmptyRecord)
{
    const QByteArray rest = SampleBytes().mid(4);
    for (const quint32 count : {0xFFFFFFFFu, 0xFFFFFFFEu, 0x80000000u, 0x7FFFFFFFu, 0x10000000u, 1000u, 6u}) {
        ExpectEmpty(FromBytes(Number(count) + rest), QByteArray::number(count));
        ExpectEmpty(FromBytes(Number(count)), QByteArray::number(count));
    }
}

TEST_F(TLRestartRecordTest, UrlLongerThanTheBytesIsAnEmptyRecord)
{
    const QByteArray rest = SampleBytes().mid(8);
    for (const quint32 length : {0xFFFFFFFEu, 0x80000000u, 0x7FFFFFFEu, 0x10000000u, 1000u}) {
        ExpectEmpty(FromBytes(Number(4) + Number(length) + rest), QByteArray::number(length));
        ExpectEmpty(FromBytes(Number(1) + Number(length)), QByteArray::number(length));
    }
}

TEST_F(TLRestartRecordTest, UrlOfAnOddLengthIsAnEmptyRecord)
{
    const QByteArray rest = SampleBytes().mid(8);
    for (const quint32 length : {1u, 3u, 0x7FFFFFFFu}) {
        ExpectEmpty(FromBytes(Number(4) + Number(length) + rest), QByteArray::number(length));
    }
}

TEST_F(TLRestartRecordTest, UnreadableBelongTypeIsEmptyAndTheUrlsAreThere)
{
    const QByteArray urls = SampleBytes().chopped(4 + 2 * 8);
    for (const QByteArray& belongType : {QByteArray(), QByteArray("\0\0", 2), Number(0x7FFFFFFE), Number(3),
                                         Number(16) + QByteArray("\0m", 2)}) {
        const TLRestartRecord record = FromBytes(urls + belongType);
        EXPECT_EQ(record.routerUrls, sampleUrls) << belongType.toHex().constData();
        EXPECT_EQ(record.belongType, QString()) << belongType.toHex().constData();
    }
}

TEST_F(TLRestartRecordTest, MillionEmptyUrlsAreRead)
{
    constexpr quint32 count = 1000000;
    const TLRestartRecord record =
        FromBytes(Number(count) + QByteArray(4 * int(count), '\0') + Number(2) + QByteArray("\0m", 2));
    EXPECT_EQ(record.routerUrls.size(), int(count));
    EXPECT_EQ(record.belongType, QStringLiteral("m"));
}
