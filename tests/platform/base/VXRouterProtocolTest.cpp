#include "base/VXRouterProtocol.h"
#include "base/IRouteExecutor.h"
#include "base/Provided.h"

#include <QtCore/QObject>
#include <QtCore/QRandomGenerator>
#include <QtCore/QStringList>

#include <gtest/gtest.h>

namespace {

QString Text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

VXRouterProtocol Route(const char* utf8)
{
    return VXRouterProtocol(Text(utf8));
}

class RecordingExecutor final : public IRouteExecutor
{
public:
    bool ExecuteRoute(const VXRouterProtocol& route) override
    {
        executed.append(route.GetUrl());
        return answer;
    }
    QObject* GetRouteObject(const VXRouterProtocol& route) override
    {
        asked.append(route.GetUrl());
        return &object;
    }

    bool answer = true;
    QObject object;
    QStringList executed;
    QStringList asked;
};

TEST(VXRouterProtocolTest, SchemeAndModuleMatchWithoutRegardToCase)
{
    EXPECT_TRUE(Route("TL://AutoRun/update").Matches(Text("tl://autorun/update")));
    EXPECT_TRUE(Route("tl://autorun/update").Matches(Text("Tl://AUTORUN/update")));
}

TEST(VXRouterProtocolTest, PathMatchesExactly)
{
    EXPECT_FALSE(Route("tl://autorun/Update").Matches(Text("tl://autorun/update")));
    EXPECT_FALSE(Route("tl://autorun/update/").Matches(Text("tl://autorun/update")));
    EXPECT_FALSE(Route("tl://autorun/restart/update").Matches(Text("tl://autorun/update")));
    EXPECT_FALSE(Route("tl://autorun").Matches(Text("tl://autorun/")));
    EXPECT_TRUE(Route("tl://autorun").Matches(Text("tl://autorun")));
}

TEST(VXRouterProtocolTest, MatchingIgnoresQueryAndFragmentOnBothSides)
{
    EXPECT_TRUE(Route("tl://a/b?ignore=tl%3A%2F%2Fc").Matches(Text("tl://a/b")));
    EXPECT_TRUE(Route("tl://a/b").Matches(Text("tl://a/b?x=1#f")));
    EXPECT_TRUE(Route("tl://a/b#f?x=1").Matches(Text("tl://a/b")));
}

TEST(VXRouterProtocolTest, WhatIsNoRouterUrlMatchesNothingNotEvenItself)
{
    for (const char* url : {"", "tl:", "tl://", "tl:///path", "http://a/b", "a/b", "tl:/a/b", " tl://a/b"}) {
        EXPECT_FALSE(Route(url).Matches(Text(url))) << url;
    }
}

TEST(VXRouterProtocolTest, ReadsDecodedParameters)
{
    const VXRouterProtocol route = Route("tl://a/b?url=https%3A%2F%2Fx.test%2F%3Fq%3D1%26r%3D2&t=%E4%B8%AD");
    EXPECT_EQ(route.GetWith(Text("url")), Text("https://x.test/?q=1&r=2"));
    EXPECT_EQ(route.GetWith(Text("t")), Text("中"));
    EXPECT_TRUE(route.GetWith(Text("absent")).isEmpty());
    EXPECT_TRUE(route.GetWith(Text("URL")).isEmpty()) << "keys are compared exactly";
}

TEST(VXRouterProtocolTest, PlusInAQueryStaysAPlus)
{
    EXPECT_EQ(Route("tl://a/b?t=1+1").GetWith(Text("t")), Text("1+1"));
    EXPECT_EQ(Route("tl://a/b?t=1+1").GetUrl(), Text("tl://a/b?t=1%2B1"));
}

TEST(VXRouterProtocolTest, MalformedPercentSequencesStayText)
{
    EXPECT_EQ(Route("tl://a/b?t=100%").GetWith(Text("t")), Text("100%"));
    EXPECT_EQ(Route("tl://a/b?t=%4").GetWith(Text("t")), Text("%4"));
    EXPECT_EQ(Route("tl://a/b?t=%zz%41").GetWith(Text("t")), Text("%zzA"));
    EXPECT_EQ(Route("tl://a/b?t=%%41").GetWith(Text("t")), Text("%A"));
    EXPECT_EQ(Route("tl://a/b?t=%FF").GetWith(Text("t")), Text("%FF")) << "no UTF-8";
    EXPECT_EQ(Route("tl://a/b?t=%E4%B8x").GetWith(Text("t")), Text("%E4%B8x")) << "half a character";
}

TEST(VXRouterProtocolTest, PercentNextToASeparatorDoesNotSwallowIt)
{
    const VXRouterProtocol route = Route("tl://a/b?x=%4&y=%&z=1");
    EXPECT_EQ(route.GetWith(Text("x")), Text("%4"));
    EXPECT_EQ(route.GetWith(Text("y")), Text("%"));
    EXPECT_EQ(route.GetWith(Text("z")), Text("1"));
}

TEST(VXRouterProtocolTest, OfDuplicateKeysTheFirstIsRead)
{
    EXPECT_EQ(Route("tl://a/b?k=1&k=2").GetWith(Text("k")), Text("1"));
    EXPECT_EQ(Route("tl://a/b?k=1&k=2").GetUrl(), Text("tl://a/b?k=1&k=2"));
}

TEST(VXRouterProtocolTest, ReplacingADuplicateKeyLeavesOne)
{
    EXPECT_EQ(Route("tl://a/b?k=1&x=0&k=2").With(Text("k"), Text("3")).GetUrl(), Text("tl://a/b?k=3&x=0"));
}

TEST(VXRouterProtocolTest, KeysWithoutEqualsAreKeptAsTheyCame)
{
    const VXRouterProtocol route = Route("tl://a/b?flag&empty=&=nameless");
    EXPECT_TRUE(route.GetWith(Text("flag")).isEmpty());
    EXPECT_EQ(route.GetWith(QString()), Text("nameless"));
    EXPECT_EQ(route.GetUrl(), Text("tl://a/b?flag&empty=&=nameless"));
}

TEST(VXRouterProtocolTest, EmptyPartsOfAQueryAreDropped)
{
    EXPECT_EQ(Route("tl://a/b?").GetUrl(), Text("tl://a/b"));
    EXPECT_EQ(Route("tl://a/b?&&x=1&").GetUrl(), Text("tl://a/b?x=1"));
}

TEST(VXRouterProtocolTest, EqualsInAValueBelongsToTheValue)
{
    EXPECT_EQ(Route("tl://a/b?x=1=2").GetWith(Text("x")), Text("1=2"));
}

TEST(VXRouterProtocolTest, AddsAtTheEndAndReplacesInPlace)
{
    VXRouterProtocol route = Route("tl://plugin/open?code=c&z=9");
    route.With(Text("isDelay"), Text("1")).With(Text("title"), Text("My app")).With(Text("code"), Text("d"));
    EXPECT_EQ(route.GetUrl(), Text("tl://plugin/open?code=d&z=9&isDelay=1&title=My%20app"));
}

TEST(VXRouterProtocolTest, EmptyValueIsWrittenWithEquals)
{
    EXPECT_EQ(Route("tl://a/b").With(Text("t"), QString()).GetUrl(), Text("tl://a/b?t="));
    EXPECT_EQ(Route("tl://a/b?t").With(Text("t"), QString()).GetUrl(), Text("tl://a/b?t="));
}

TEST(VXRouterProtocolTest, ReservedCharactersOfAValueAreEncoded)
{
    const QString value = Text("&=#+% ?/:中\n\"");
    VXRouterProtocol route = Route("tl://a/b");
    route.With(value, value);
    EXPECT_EQ(route.GetUrl(), Text("tl://a/b?%26%3D%23%2B%25%20%3F%2F%3A%E4%B8%AD%0A%22="
                                   "%26%3D%23%2B%25%20%3F%2F%3A%E4%B8%AD%0A%22"));
    EXPECT_EQ(VXRouterProtocol(route.GetUrl()).GetWith(value), value);
}

TEST(VXRouterProtocolTest, FragmentComesAfterAddedParameters)
{
    EXPECT_EQ(Route("tl://a/b#part").With(Text("x"), Text("1")).GetUrl(), Text("tl://a/b?x=1#part"));
}

TEST(VXRouterProtocolTest, ByteOrderMarkAndNulSurvive)
{
    const QString value = QString(QChar(QChar::ByteOrderMark)) + Text("x") + QChar(0) + Text("y");
    VXRouterProtocol route = Route("tl://a/b");
    route.With(Text("v"), value);
    EXPECT_EQ(VXRouterProtocol(route.GetUrl()).GetWith(Text("v")), value);
}

TEST(VXRouterProtocolTest, AnyKeysAndValuesSurviveTheRoundTrip)
{
    QRandomGenerator random(20240611);
    const QString likely = Text("%&=#+?/ 0aF");
    const auto randomText = [&random, &likely] {
        QString text;
        const int length = random.bounded(12);
        for (int i = 0; i < length; ++i) {
            switch (random.bounded(4)) {
            case 0:
                text.append(QChar(random.bounded(0x80)));
                break;
            case 1: {
                const uint plane = 0x10000u + uint(random.bounded(0x100000));
                text.append(QChar(QChar::highSurrogate(plane)));
                text.append(QChar(QChar::lowSurrogate(plane)));
                break;
            }
            case 2: {
                const ushort code = ushort(random.bounded(0x10000));
                text.append(QChar::isSurrogate(code) ? QLatin1Char('s') : QChar(code));
                break;
            }
            default:
                text.append(likely.at(random.bounded(likely.size())));
            }
        }
        return text;
    };
    for (int round = 0; round < 5000; ++round) {
        const QString first = randomText();
        const QString second = randomText();
        VXRouterProtocol route = Route("tl://browser/open");
        route.With(Text("k") + first, second).With(Text("j") + second, first);
        const VXRouterProtocol again(route.GetUrl());
        ASSERT_EQ(again.GetWith(Text("k") + first), second) << route.GetUrl().toStdString();
        ASSERT_EQ(again.GetWith(Text("j") + second), first) << route.GetUrl().toStdString();
        ASSERT_EQ(again.GetUrl(), route.GetUrl());
        ASSERT_TRUE(again.Matches(Text("tl://browser/open")));
    }
}

TEST(VXRouterProtocolTest, RouterUrlNestsInARouterUrl)
{
    VXRouterProtocol inner = Route("tl://browser/open");
    inner.With(Text("url"), Text("https://x.test/?a=1&b=2#c"));
    VXRouterProtocol outer = Route("tl://autorun/restart/update");
    outer.With(Text("ignore"), inner.GetUrl());
    EXPECT_EQ(VXRouterProtocol(outer.GetUrl()).GetWith(Text("ignore")), inner.GetUrl());
}

TEST(VXRouterProtocolTest, ExecutesThroughTheProvidedExecutor)
{
    RecordingExecutor executor;
    const Provided<IRouteExecutor> provided(&executor);
    EXPECT_TRUE(Route("tl://a/b?x=1").Execute());
    executor.answer = false;
    EXPECT_FALSE(Route("tl://a/c").Execute());
    EXPECT_EQ(executor.executed, QStringList({Text("tl://a/b?x=1"), Text("tl://a/c")}));
    EXPECT_EQ(Route("tl://a/object").GetObj(), &executor.object);
    EXPECT_EQ(executor.asked, QStringList(Text("tl://a/object")));
}

TEST(VXRouterProtocolTest, WithoutExecutorNothingIsRouted)
{
    EXPECT_FALSE(Route("tl://a/b").Execute());
    EXPECT_EQ(Route("tl://a/b").GetObj(), nullptr);
}

TEST(VXRouterProtocolTest, WhatIsNoRouterUrlNeverReachesTheExecutor)
{
    RecordingExecutor executor;
    const Provided<IRouteExecutor> provided(&executor);
    EXPECT_FALSE(Route("https://a/b").Execute());
    EXPECT_EQ(Route("").GetObj(), nullptr);
    EXPECT_TRUE(executor.executed.isEmpty());
    EXPECT_TRUE(executor.asked.isEmpty());
}

} // namespace
