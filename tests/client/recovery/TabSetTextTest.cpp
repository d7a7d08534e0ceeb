#include "TabSetExamples.h"

#include "TabSetText.h"

#include <QtCore/QFile>
#include <QtCore/QRandomGenerator>
#include <QtCore/QStringList>

#include <gtest/gtest.h>

using TabSetExamples::MakeApp;
using TabSetExamples::MakePage;
using TabSetExamples::MakeTabs;
using TabSetText::Read;
using TabSetText::Reading;
using TabSetText::Write;

namespace {

/// Five tabs of both kinds, with multi-byte characters.
TabSet MakeMixed()
{
    TabSet tabs = MakeTabs(3, 2);
    tabs.tabs.insert(1, MakeApp(QStringLiteral("orders")));
    tabs.tabs[2].title = QStringLiteral("订单 – Übersicht 🛒");
    tabs.tabs.append(MakePage(QStringLiteral("last")));
    return tabs;
}

QStringList LinesOf(const TabSet& tabs)
{
    return Write(tabs).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QString Join(const QStringList& lines)
{
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

/// All of the bytes, also those after a zero.
QString ToText(const QByteArray& bytes)
{
    return QString::fromUtf8(bytes.constData(), bytes.size());
}

/// The text of `tabs` with `head` as its first line, where %1 stands for `value`.
QString WithHead(const TabSet& tabs, const char* head, const char* value)
{
    QStringList lines = LinesOf(tabs);
    lines[0] = QString::fromLatin1(head).arg(QLatin1String(value));
    return Join(lines);
}

/// Whether `tabs` has all of `wanted` in this order, possibly with others in between.
bool HasInOrder(const QVector<TabRecord>& tabs, const QVector<TabRecord>& wanted)
{
    auto at = tabs.cbegin();
    for (const TabRecord& tab : wanted) {
        at = std::find(at, tabs.cend(), tab);
        if (at == tabs.cend()) {
            return false;
        }
        ++at;
    }
    return true;
}

} // namespace

TEST(TabSetTextTest, WhatIsWrittenIsReadBackWhole)
{
    const TabSet tabs = MakeMixed();
    const Reading reading = Read(Write(tabs));
    EXPECT_TRUE(reading.whole);
    EXPECT_EQ(reading.tabs, tabs);
    EXPECT_EQ(reading.tabs.when.timeSpec(), Qt::UTC);
}

TEST(TabSetTextTest, NoTabsAreAnEmptyText)
{
    TabSet none = MakeTabs(0, -1);
    EXPECT_EQ(Write(none), QString());
    const Reading reading = Read(QString());
    EXPECT_TRUE(reading.whole);
    EXPECT_EQ(reading.tabs, TabSet());
}

TEST(TabSetTextTest, LocalTimeIsWrittenAsTheSameMomentInUtc)
{
    TabSet tabs = MakeTabs(1);
    tabs.when = QDateTime(QDate(2026, 11, 21), QTime(16, 30, 15, 250), Qt::OffsetFromUTC, 8 * 3600);
    EXPECT_EQ(Write(tabs), Write(MakeTabs(1)));
}

TEST(TabSetTextTest, StoredSampleIsReadAndWrittenTheSame)
{
    QFile file(QStringLiteral(TL_CLIENT_RECOVERY_TEST_DATA "/kept-tabs-v1.txt"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString sample = QString::fromUtf8(file.readAll());
    const Reading reading = Read(sample);
    EXPECT_TRUE(reading.whole);
    EXPECT_EQ(reading.tabs.when, QDateTime(QDate(2026, 11, 21), QTime(8, 30, 15, 250), Qt::UTC));
    EXPECT_EQ(reading.tabs.current, 1);
    const QVector<TabRecord> expected{
        {QStringLiteral("tl://browser/open?url=https%3A%2F%2Fshop.example%2Fa%3Fb%3D1%26c%3D2"),
         QStringLiteral("“Shop” – <b>50 %</b> & more \\ 店铺 🛒"),
         QStringLiteral("https://shop.example/favicon.ico"), TabType::WebPage},
        {QStringLiteral("tl://plugin/open?code=orders"), QStringLiteral("Orders"), QString(),
         TabType::WebApp},
        {QStringLiteral("tl://plugin/open?code=print"), QString(), QString(), TabType::NativeApp}};
    EXPECT_EQ(reading.tabs.tabs, expected);
    EXPECT_EQ(Write(reading.tabs), sample);
}

TEST(TabSetTextTest, CutAnywhereItGivesTheTabsBeforeTheCut)
{
    const TabSet tabs = MakeMixed();
    const QByteArray text = Write(tabs).toUtf8();
    for (int size = 0; size < text.size() - 1; ++size) {
        const QByteArray kept = text.left(size);
        // A line without its line feed is complete, too.
        const int lines = kept.count('\n') + (text.at(size) == '\n' ? 1 : 0);
        const Reading reading = Read(ToText(kept));
        EXPECT_EQ(reading.whole, size == 0) << size;
        EXPECT_EQ(reading.tabs.tabs, tabs.tabs.mid(0, std::max(lines - 1, 0))) << size;
        EXPECT_EQ(reading.tabs.current, -1) << size;
        EXPECT_EQ(reading.tabs.when.isValid(), lines > 0) << size;
    }
    EXPECT_TRUE(Read(QString::fromUtf8(text.left(text.size() - 1))).whole) << "only the last line's end";
}

TEST(TabSetTextTest, CutFromTheFrontItGivesTheTabsBehindTheCut)
{
    const TabSet tabs = MakeMixed();
    const QByteArray text = Write(tabs).toUtf8();
    for (int start = 1; start < text.size(); ++start) {
        const QByteArray kept = text.mid(start);
        const int lines = kept.count('\n') - (text.at(start - 1) == '\n' ? 0 : 1);
        const Reading reading = Read(ToText(kept));
        EXPECT_FALSE(reading.whole) << start;
        EXPECT_EQ(reading.tabs.tabs, tabs.tabs.mid(tabs.tabs.size() - lines)) << start;
        EXPECT_EQ(reading.tabs.current, -1) << start;
    }
}

TEST(TabSetTextTest, FlippedByteCostsOnlyTheLinesThatItHits)
{
    const TabSet tabs = MakeMixed();
    const QByteArray text = Write(tabs).toUtf8();
    for (int place = 0; place < text.size(); ++place) {
        for (const int bits : {0x01, 0x04, 0x20, 0x80, 0xff}) {
            QByteArray damaged = text;
            damaged[place] = static_cast<char>(damaged.at(place) ^ bits);
            const int line = text.left(place).count('\n');
            QVector<TabRecord> untouched;
            for (int i = 0; i < tabs.tabs.size(); ++i) {
                // A line feed also belongs to the next line.
                if (i + 1 != line && !(text.at(place) == '\n' && i == line)) {
                    untouched.append(tabs.tabs.at(i));
                }
            }
            const Reading reading = Read(ToText(damaged));
            EXPECT_TRUE(HasInOrder(reading.tabs.tabs, untouched)) << place << " " << bits;
            EXPECT_LE(reading.tabs.tabs.size(), tabs.tabs.size()) << place << " " << bits;
            if (reading.tabs.tabs.size() != tabs.tabs.size()) {
                EXPECT_FALSE(reading.whole) << place << " " << bits;
                EXPECT_EQ(reading.tabs.current, -1) << place << " " << bits;
            }
        }
    }
}

TEST(TabSetTextTest, AnyBytesAreReadWithoutACrash)
{
    QRandomGenerator random(20261121);
    const QByteArray text = Write(MakeMixed()).toUtf8();
    for (int round = 0; round < 2000; ++round) {
        QByteArray damaged = text;
        for (int hits = random.bounded(40); hits >= 0; --hits) {
            damaged[random.bounded(damaged.size())] = static_cast<char>(random.bounded(256));
        }
        const Reading reading = Read(ToText(damaged));
        EXPECT_LT(reading.tabs.current, reading.tabs.tabs.size());
    }
    EXPECT_FALSE(Read(QString(100000, QLatin1Char('['))).whole);
    EXPECT_FALSE(Read(QString(100000, QLatin1Char('\n'))).whole);
    EXPECT_FALSE(Read(QString(10, QChar(0))).whole);
    EXPECT_FALSE(Read(QStringLiteral("\n")).whole);
}

TEST(TabSetTextTest, CountThatCannotBeTrueCostsNoTabAndNoMemory)
{
    const char* const head =
        "{\"count\":%1,\"current\":0,\"version\":1,\"when\":\"2026-11-21T08:30:15.250Z\"}";
    EXPECT_TRUE(Read(WithHead(MakeTabs(3), head, "3")).whole);
    for (const char* count : {"2147483647", "4294967299", "1e300", "-1", "-2147483648", "0", "2", "4", "3.5",
                              "\"3\"", "null", "true", "[3]", "{}"}) {
        const Reading reading = Read(WithHead(MakeTabs(3), head, count));
        EXPECT_FALSE(reading.whole) << count;
        EXPECT_EQ(reading.tabs.tabs, MakeTabs(3).tabs) << count;
        EXPECT_EQ(reading.tabs.current, -1) << count;
    }
}

TEST(TabSetTextTest, FrontTabThatCannotBeTrueIsNone)
{
    const char* const head =
        "{\"count\":3,\"current\":%1,\"version\":1,\"when\":\"2026-11-21T08:30:15.250Z\"}";
    EXPECT_EQ(Read(WithHead(MakeTabs(3), head, "2")).tabs.current, 2);
    for (const char* current : {"3", "2147483647", "1e300", "-2", "-2147483648", "\"2\"", "null", "0.5"}) {
        const Reading reading = Read(WithHead(MakeTabs(3), head, current));
        EXPECT_EQ(reading.tabs.tabs, MakeTabs(3).tabs) << current;
        EXPECT_EQ(reading.tabs.current, -1) << current;
    }
}

TEST(TabSetTextTest, AnotherVersionIsReadAsFarAsItIsUnderstood)
{
    const char* const head =
        "{\"count\":3,\"current\":0,\"version\":%1,\"when\":\"2026-11-21T08:30:15.250Z\"}";
    for (const char* version : {"0", "2", "2147483648", "1.5", "\"1\"", "null"}) {
        const Reading reading = Read(WithHead(MakeTabs(3), head, version));
        EXPECT_FALSE(reading.whole) << version;
        EXPECT_EQ(reading.tabs.tabs, MakeTabs(3).tabs) << version;
    }
}

TEST(TabSetTextTest, UnknownTimeIsInvalidAndSaidToBeDamage)
{
    const char* const head = "{\"count\":3,\"current\":0,\"version\":1,\"when\":%1}";
    for (const char* when : {"\"\"", "\"yesterday\"", "\"2026-13-41T08:30:15.250Z\"", "1", "null"}) {
        const Reading reading = Read(WithHead(MakeTabs(3), head, when));
        EXPECT_FALSE(reading.whole) << when;
        EXPECT_FALSE(reading.tabs.when.isValid()) << when;
        EXPECT_EQ(reading.tabs.tabs, MakeTabs(3).tabs) << when;
    }
}

TEST(TabSetTextTest, LostLineIsNoticed)
{
    const TabSet tabs = MakeTabs(4, 1);
    for (int lost = 0; lost < 4; ++lost) {
        QStringList lines = LinesOf(tabs);
        lines.removeAt(lost + 1);
        const Reading reading = Read(Join(lines));
        TabSet expected = tabs;
        expected.tabs.removeAt(lost);
        EXPECT_FALSE(reading.whole) << lost;
        EXPECT_EQ(reading.tabs.tabs, expected.tabs) << lost;
        EXPECT_EQ(reading.tabs.current, -1) << "another tab may stand there now";
    }
}

TEST(TabSetTextTest, DoubledLineIsNoticed)
{
    QStringList lines = LinesOf(MakeTabs(3, 1));
    lines.insert(2, lines.at(2));
    const Reading reading = Read(Join(lines));
    EXPECT_FALSE(reading.whole);
    EXPECT_EQ(reading.tabs.tabs.size(), 4);
    EXPECT_EQ(reading.tabs.current, -1);
}

TEST(TabSetTextTest, DoubledHeadCostsNoTab)
{
    QStringList lines = LinesOf(MakeTabs(3, 1));
    lines.prepend(lines.constFirst());
    const Reading reading = Read(Join(lines));
    EXPECT_FALSE(reading.whole);
    EXPECT_EQ(reading.tabs.tabs, MakeTabs(3).tabs);
}

TEST(TabSetTextTest, SwappedLinesLoseNothing)
{
    QStringList lines = LinesOf(MakeTabs(3));
    lines.swapItemsAt(1, 3);
    const QVector<TabRecord> tabs = MakeTabs(3).tabs;
    EXPECT_EQ(Read(Join(lines)).tabs.tabs, (QVector<TabRecord>{tabs.at(2), tabs.at(1), tabs.at(0)}));
    // A tab where the head should be, and the head where none is expected.
    lines = LinesOf(MakeTabs(3));
    lines.swapItemsAt(0, 1);
    const Reading reading = Read(Join(lines));
    EXPECT_FALSE(reading.whole);
    EXPECT_EQ(reading.tabs.tabs, tabs);
}

TEST(TabSetTextTest, LineThatOpensNoTabIsNotTaken)
{
    for (const char* url :
         {"javascript:alert(1)", "file:///etc/passwd", "https://shop.example/", "data:text/html,x", "",
          "tl://client/restart", "tl://client/restart?ignore=x", "tl://autorun/clean", "tl://autorun/update",
          "tl://browser/openx?url=x", "tl://browser/Open?url=x", "tl://browser", "xtl://browser/open?url=x",
          "tl://plugins/object", "tl://browser/open/../../client/restart"}) {
        TabSet tabs = MakeTabs(3, 0);
        tabs.tabs[1].routerUrl = QLatin1String(url);
        const Reading reading = Read(Write(tabs));
        EXPECT_FALSE(reading.whole) << url;
        EXPECT_EQ(reading.tabs.tabs, (QVector<TabRecord>{tabs.tabs.at(0), tabs.tabs.at(2)})) << url;
        EXPECT_EQ(reading.tabs.current, -1) << url;
    }
}

TEST(TabSetTextTest, TabLineOfTheWrongShapeIsNotTaken)
{
    for (const char* line : {"[]", "{}", "null", "1", "\"tl://browser/open\"", "{\"url\":1}",
                             "{\"url\":[\"tl://browser/open?url=x\"]}", "{\"url\":null,\"title\":\"x\"}"}) {
        QStringList lines = LinesOf(MakeTabs(2));
        lines.insert(2, QLatin1String(line));
        const Reading reading = Read(Join(lines));
        EXPECT_FALSE(reading.whole) << line;
        EXPECT_EQ(reading.tabs.tabs, MakeTabs(2).tabs) << line;
    }
}

TEST(TabSetTextTest, FieldOfTheWrongTypeCostsOnlyItself)
{
    QStringList lines = LinesOf(MakeTabs(1));
    lines[1] = QStringLiteral(R"({"icon":7,"title":["x"],"type":"3","url":"tl://browser/open?url=x"})");
    const QVector<TabRecord> tabs = Read(Join(lines)).tabs.tabs;
    ASSERT_EQ(tabs.size(), 1);
    EXPECT_EQ(tabs.constFirst(),
              (TabRecord{QStringLiteral("tl://browser/open?url=x"), QString(), QString(), 0}));
}

TEST(TabSetTextTest, TitlesOfAllKindsComeBackAsTheyWere)
{
    QString control;
    for (ushort letter = 1; letter < 0x20; ++letter) {
        control += QChar(letter);
    }
    TabSet tabs = MakeTabs(1);
    const QStringList titles{QStringLiteral("<img src=x onerror=alert(1)> &amp; &#10;"),
                             QStringLiteral("👩‍👩‍👧 🇨🇳 ❤️"),
                             QStringLiteral("עברית \u202Eنص عربي\u202C"),
                             QStringLiteral("\"},{\"url\":\"tl://client/restart\"}"),
                             QStringLiteral("back\\slash \\n \\u0000 %1 %20"),
                             QStringLiteral("lines\nof\r\ntext\u2028and\u2029more\ttabs"),
                             control,
                             QString(QChar(0)) + QStringLiteral("after nothing"),
                             QString(100000, QLatin1Char('x'))};
    for (const QString& title : titles) {
        tabs.tabs[0].title = title;
        EXPECT_EQ(Read(Write(tabs)).tabs, tabs) << title.left(60).toStdString();
        EXPECT_EQ(LinesOf(tabs).size(), 2) << title.left(60).toStdString();
    }
}

TEST(TabSetTextTest, HalfALetterInATitleCostsNothingElse)
{
    TabSet tabs = MakeTabs(3, 1);
    tabs.tabs[1].title = QStringLiteral("half ") + QChar(0xd83d);
    const Reading reading = Read(Write(tabs));
    EXPECT_TRUE(reading.whole);
    ASSERT_EQ(reading.tabs.tabs.size(), 3);
    EXPECT_EQ(reading.tabs.tabs.at(1).routerUrl, tabs.tabs.at(1).routerUrl);
    EXPECT_TRUE(reading.tabs.tabs.at(1).title.startsWith(QStringLiteral("half ")));
}

TEST(TabSetTextTest, ThousandTabsComeBackInOrder)
{
    const TabSet tabs = MakeTabs(1000, 999);
    const Reading reading = Read(Write(tabs));
    EXPECT_TRUE(reading.whole);
    EXPECT_EQ(reading.tabs, tabs);
}
