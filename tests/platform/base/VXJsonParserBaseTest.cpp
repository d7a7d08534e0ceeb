#include "DerivedRecord.h"
#include "HookedRecord.h"
#include "SampleRecord.h"

#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <thread>
#include <vector>

namespace {

QStringList ErrorsOf(const QByteArray& json)
{
    SampleRecord record;
    EXPECT_FALSE(record.Parse(json)) << json.constData();
    return record.GetParseError();
}

QStringList Lines(const char* line)
{
    return {QString::fromUtf8(line)};
}

TEST(VXJsonParserBaseTest, FillsEveryTypeThatItKnows)
{
    SampleRecord record;
    EXPECT_TRUE(record.Parse(QByteArrayLiteral(
        R"({"text":"ä","flag":true,"number":42,"real":1.25,"big":9007199254740992,"texts":["a","b"]})")));
    EXPECT_EQ(record.text, QString(QChar(0xe4)));
    EXPECT_TRUE(record.flag);
    EXPECT_EQ(record.number, 42);
    EXPECT_EQ(record.real, 1.25);
    EXPECT_EQ(record.big, Q_INT64_C(9007199254740992));
    EXPECT_EQ(record.texts, QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_TRUE(record.GetParseError().isEmpty());
}

TEST(VXJsonParserBaseTest, MissingKeysLeaveTheValuesAlone)
{
    SampleRecord record;
    EXPECT_TRUE(record.Parse(QByteArrayLiteral("{}")));
    EXPECT_EQ(record.text, QStringLiteral("initial"));
    EXPECT_EQ(record.number, -1);
    EXPECT_EQ(record.texts, QStringList(QStringLiteral("one")));
}

TEST(VXJsonParserBaseTest, UnknownKeysAreIgnored)
{
    SampleRecord record;
    EXPECT_TRUE(record.Parse(QByteArrayLiteral(R"({"nobody":{"deep":[1,2]},"Text":1})")));
    EXPECT_EQ(record.text, QStringLiteral("initial"));
}

TEST(VXJsonParserBaseTest, WrongTypesLeaveTheValueAloneAndNameKeyWantedAndFound)
{
    EXPECT_EQ(ErrorsOf(R"({"number":"5"})"), Lines(R"(key "number": wanted int, found string)"));
    EXPECT_EQ(ErrorsOf(R"({"number":true})"), Lines(R"(key "number": wanted int, found bool)"));
    EXPECT_EQ(ErrorsOf(R"({"text":5})"), Lines(R"(key "text": wanted string, found number 5)"));
    EXPECT_EQ(ErrorsOf(R"({"text":null})"), Lines(R"(key "text": wanted string, found null)"));
    EXPECT_EQ(ErrorsOf(R"({"flag":1})"), Lines(R"(key "flag": wanted bool, found number 1)"));
    EXPECT_EQ(ErrorsOf(R"({"real":[]})"), Lines(R"(key "real": wanted double, found array)"));
    EXPECT_EQ(ErrorsOf(R"({"big":{}})"), Lines(R"(key "big": wanted 64-bit int, found object)"));
    EXPECT_EQ(ErrorsOf(R"({"texts":"a"})"), Lines(R"(key "texts": wanted array of strings, found string)"));

    SampleRecord record;
    record.Parse(QByteArrayLiteral(R"({"number":"5","text":5,"flag":1,"real":[],"big":{},"texts":"a"})"));
    EXPECT_EQ(record.GetParseError().size(), 6);
    EXPECT_EQ(record.number, -1);
    EXPECT_EQ(record.text, QStringLiteral("initial"));
    EXPECT_FALSE(record.flag);
    EXPECT_EQ(record.real, 0.5);
    EXPECT_EQ(record.big, -2);
    EXPECT_EQ(record.texts, QStringList(QStringLiteral("one")));
}

TEST(VXJsonParserBaseTest, GoodKeysAreTakenBesideBadOnes)
{
    SampleRecord record;
    EXPECT_FALSE(record.Parse(QByteArrayLiteral(R"({"number":"5","text":"taken"})")));
    EXPECT_EQ(record.text, QStringLiteral("taken"));
}

TEST(VXJsonParserBaseTest, NumbersWithoutFractionAreInts)
{
    SampleRecord record;
    EXPECT_TRUE(record.Parse(QByteArrayLiteral(R"({"number":3.0})")));
    EXPECT_EQ(record.number, 3);
    EXPECT_TRUE(record.Parse(QByteArrayLiteral(R"({"number":1e3})")));
    EXPECT_EQ(record.number, 1000);
    EXPECT_TRUE(record.Parse(QByteArrayLiteral(R"({"number":-0})")));
    EXPECT_EQ(record.number, 0);
}

TEST(VXJsonParserBaseTest, IntLimitsAreTakenAndOneBeyondIsNot)
{
    SampleRecord record;
    EXPECT_TRUE(record.Parse(QByteArrayLiteral(R"({"number":2147483647})")));
    EXPECT_EQ(record.number, std::numeric_limits<int>::max());
    EXPECT_TRUE(record.Parse(QByteArrayLiteral(R"({"number":-2147483648})")));
    EXPECT_EQ(record.number, std::numeric_limits<int>::min());
    EXPECT_EQ(ErrorsOf(R"({"number":2147483648})"),
              Lines(R"(key "number": wanted int, found number 2147483648)"));
    EXPECT_EQ(ErrorsOf(R"({"number":-2147483649})"),
              Lines(R"(key "number": wanted int, found number -2147483649)"));
    EXPECT_EQ(ErrorsOf(R"({"number":1.5})"), Lines(R"(key "number": wanted int, found number 1.5)"));
    EXPECT_EQ(ErrorsOf(R"({"number":1e300})").size(), 1);
}

TEST(VXJsonParserBaseTest, BigIntegersAreExactToTwoToThe53)
{
    SampleRecord record;
    EXPECT_TRUE(record.Parse(QByteArrayLiteral(R"({"big":-9007199254740992})")));
    EXPECT_EQ(record.big, -Q_INT64_C(9007199254740992));
    EXPECT_EQ(ErrorsOf(R"({"big":9007199254740993})").size(), 1) << "a double would round this into range";
    EXPECT_EQ(ErrorsOf(R"({"big":9223372036854775807})").size(), 1);
    EXPECT_EQ(ErrorsOf(R"({"big":1e19})").size(), 1);
    EXPECT_EQ(ErrorsOf(R"({"big":0.5})").size(), 1);
}

TEST(VXJsonParserBaseTest, StringListIsRefusedForOneElementOfAnotherType)
{
    EXPECT_EQ(ErrorsOf(R"({"texts":["a",1]})"),
              Lines(R"(key "texts": wanted array of strings, found array)"));
    SampleRecord record;
    EXPECT_TRUE(record.Parse(QByteArrayLiteral(R"({"texts":[]})")));
    EXPECT_TRUE(record.texts.isEmpty());
}

TEST(VXJsonParserBaseTest, PropertiesOfOtherTypesAreLeftAlone)
{
    SampleRecord record;
    EXPECT_TRUE(
        record.Parse(QByteArrayLiteral(R"({"unknown":{"b":2},"colour":0,"readOnly":9,"objectName":"x"})")));
    EXPECT_EQ(record.unknown.size(), 1);
    EXPECT_EQ(record.colour, SampleRecord::Green);
    EXPECT_TRUE(record.objectName().isEmpty());
    const QJsonObject json = record.ToJsonObject();
    EXPECT_FALSE(json.contains(QLatin1String("unknown")));
    EXPECT_FALSE(json.contains(QLatin1String("colour")));
    EXPECT_FALSE(json.contains(QLatin1String("objectName")));
    EXPECT_EQ(json.value(QLatin1String("readOnly")).toInt(), 7);
}

TEST(VXJsonParserBaseTest, TextThatIsNoJsonIsOneErrorAndChangesNothing)
{
    for (const char* text :
         {"", "   ", "nonsense", "{", R"({"text":"x"} trailing)", "{'text':1}", "\xff\xfe"}) {
        SampleRecord record;
        EXPECT_FALSE(record.Parse(QByteArray(text))) << text;
        EXPECT_EQ(record.GetParseError().size(), 1) << text;
        EXPECT_TRUE(record.GetParseError().constFirst().startsWith(QLatin1String("not JSON: "))) << text;
        EXPECT_EQ(record.text, QStringLiteral("initial"));
    }
}

TEST(VXJsonParserBaseTest, AnythingButAnObjectIsOneError)
{
    EXPECT_EQ(ErrorsOf("[1,2]"), Lines("wanted object, found array"));
    SampleRecord record;
    EXPECT_FALSE(record.Parse(QJsonDocument::fromJson("[]")));
    EXPECT_EQ(record.GetParseError(), Lines("wanted object, found array"));
    EXPECT_FALSE(record.Parse(QJsonDocument()));
    EXPECT_EQ(record.GetParseError(), Lines("wanted object, found nothing"));
}

TEST(VXJsonParserBaseTest, DeepNestingIsOneError)
{
    const QByteArray deep = R"({"text":)" + QByteArray(100000, '[');
    EXPECT_EQ(ErrorsOf(deep).size(), 1);
    EXPECT_EQ(ErrorsOf(deep + QByteArray(100000, ']') + '}').size(), 1);
}

TEST(VXJsonParserBaseTest, HugeTextIsTaken)
{
    const QByteArray text(10 * 1024 * 1024, 'x');
    SampleRecord record;
    EXPECT_TRUE(record.Parse(QByteArray(R"({"text":")" + text + R"("})")));
    EXPECT_EQ(record.text.size(), text.size());
}

TEST(VXJsonParserBaseTest, EachParseStartsWithoutTheErrorsOfTheLast)
{
    SampleRecord record;
    EXPECT_FALSE(record.Parse(QByteArrayLiteral(R"({"number":"x"})")));
    EXPECT_TRUE(record.Parse(QByteArrayLiteral(R"({"number":1})")));
    EXPECT_TRUE(record.GetParseError().isEmpty());
    EXPECT_FALSE(record.Parse(QByteArrayLiteral("[]")));
    EXPECT_EQ(record.GetParseError().size(), 1);
}

TEST(VXJsonParserBaseTest, WritesCompactSortedText)
{
    SampleRecord record;
    record.text = QString(QChar(0x4e2d)) + QLatin1Char('"');
    EXPECT_EQ(record.ToJson(),
              QByteArray("{\"big\":-2,\"flag\":false,\"number\":-1,\"readOnly\":7,\"real\":0.5,"
                         "\"text\":\"\xe4\xb8\xad\\\"\",\"texts\":[\"one\"]}"));
}

TEST(VXJsonParserBaseTest, WhatIsWrittenReadsBackEqual)
{
    SampleRecord written;
    written.text = QStringLiteral("\t\\ \"quoted\" \u4e2d");
    written.flag = true;
    written.number = std::numeric_limits<int>::min();
    written.real = 0.1;
    written.big = -Q_INT64_C(9007199254740992);
    written.texts = QStringList{QString(), QStringLiteral("b")};
    SampleRecord read;
    EXPECT_TRUE(read.Parse(written.ToJson()));
    EXPECT_EQ(read.ToJson(), written.ToJson());
    EXPECT_EQ(read.real, 0.1);
    EXPECT_EQ(read.texts, written.texts);
}

TEST(VXJsonParserBaseTest, NumberWithoutJsonFormIsLeftOut)
{
    SampleRecord record;
    record.real = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(record.ToJsonObject().contains(QLatin1String("real")));
    record.real = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(record.ToJsonObject().contains(QLatin1String("real")));
}

TEST(VXJsonParserBaseTest, HooksComeFirstAndSeeOnlyKeysOfTheJson)
{
    HookedRecord record;
    EXPECT_TRUE(record.Parse(QByteArrayLiteral(R"({"handled":[1,"two"],"plain":"p","undeclared":1})")));
    EXPECT_EQ(record.offeredToParse, QStringList({QStringLiteral("plain"), QStringLiteral("handled")}));
    EXPECT_EQ(record.handled.size(), 2);
    EXPECT_EQ(record.plain, QStringLiteral("p"));
}

TEST(VXJsonParserBaseTest, HookSeesExplicitNull)
{
    HookedRecord record;
    record.handled = {1};
    EXPECT_TRUE(record.Parse(QByteArrayLiteral(R"({"handled":null})")));
    EXPECT_TRUE(record.handled.isEmpty());
}

TEST(VXJsonParserBaseTest, EveryPropertyIsOfferedWhenWritingAndMayStayOut)
{
    HookedRecord record;
    record.handled = {true};
    const QJsonObject json = record.ToJsonObject();
    EXPECT_EQ(record.offeredToWrite,
              QStringList({QStringLiteral("plain"), QStringLiteral("handled"), QStringLiteral("secret")}));
    EXPECT_EQ(QJsonDocument(json).toJson(QJsonDocument::Compact),
              QByteArray(R"({"handled":[true],"plain":""})"));
}

TEST(VXJsonParserBaseTest, SpecialErrorsComeAfterTheBasesOwnAndFailTheParse)
{
    HookedRecord record;
    record.errors = Lines("mine");
    EXPECT_FALSE(record.Parse(QByteArrayLiteral(R"({"plain":1})")));
    EXPECT_EQ(record.GetParseError(), Lines(R"(key "plain": wanted string, found number 1)") + Lines("mine"));
}

TEST(VXJsonParserBaseTest, DerivedClassHasTheFieldsOfItsBase)
{
    DerivedRecord record;
    EXPECT_TRUE(record.Parse(QByteArrayLiteral(R"({"text":"base","extra":"own","number":"declared anew"})")));
    EXPECT_EQ(record.text, QStringLiteral("base"));
    EXPECT_EQ(record.extra, QStringLiteral("own"));
    EXPECT_EQ(record.numberAsText, QStringLiteral("declared anew"));
    EXPECT_EQ(record.number, -1);
    EXPECT_TRUE(record.ToJsonObject().value(QLatin1String("number")).isString());
}

TEST(VXJsonParserBaseTest, CopyTakesTheErrorsButNotWhatMakesItThatObject)
{
    VXJsonParserBase parent;
    VXJsonParserBase original(&parent);
    original.setObjectName(QStringLiteral("name"));
    original.Parse(QByteArrayLiteral("nonsense"));
    const VXJsonParserBase copy(original);
    EXPECT_EQ(copy.GetParseError(), original.GetParseError());
    EXPECT_EQ(copy.parent(), nullptr);
    EXPECT_TRUE(copy.objectName().isEmpty());

    VXJsonParserBase assigned;
    assigned.setObjectName(QStringLiteral("kept"));
    assigned = original;
    EXPECT_EQ(assigned.GetParseError(), original.GetParseError());
    EXPECT_EQ(assigned.objectName(), QStringLiteral("kept"));
}

TEST(VXJsonParserBaseTest, RecordsMayBeUsedOnSeveralThreads)
{
    std::vector<std::thread> threads;
    threads.reserve(4);
    std::atomic<int> good{0};
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&good] {
            for (int round = 0; round < 200; ++round) {
                DerivedRecord derived;
                HookedRecord hooked;
                if (derived.Parse(QByteArrayLiteral(R"({"extra":"e"})")) &&
                    hooked.Parse(QByteArrayLiteral(R"({"secret":5})")) && hooked.secret == 5) {
                    ++good;
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(good, 800);
}

} // namespace
