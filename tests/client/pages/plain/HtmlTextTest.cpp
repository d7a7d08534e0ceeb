#include "HtmlText.h"

#include <QtCore/QElapsedTimer>

#include <gtest/gtest.h>

namespace {

QString TextOf(const char* html)
{
    return HtmlText::Read(QString::fromUtf8(html)).text;
}

} // namespace

TEST(HtmlTextTest, TitleIsNoPartOfTheText)
{
    const HtmlText read = HtmlText::Read(
        QStringLiteral("<html><head><title>Orders\n of today</title></head><body>Twelve</body></html>"));
    EXPECT_EQ(read.title, QStringLiteral("Orders of today"));
    EXPECT_EQ(read.text, QStringLiteral("Twelve"));
}

TEST(HtmlTextTest, FirstTitleCounts)
{
    EXPECT_EQ(HtmlText::Read(QStringLiteral("<title>a</title><svg><title>b</title></svg>")).title,
              QStringLiteral("a"));
}

TEST(HtmlTextTest, BlocksStandOnLinesOfTheirOwnAndInlineElementsDoNot)
{
    EXPECT_EQ(TextOf("<h1>One</h1><p>two <b>three</b></p><ul><li>four<li>five</ul>six<br>seven"),
              QStringLiteral("One\ntwo three\nfour\nfive\nsix\nseven"));
}

TEST(HtmlTextTest, BlanksAndLineBreaksAreOneBlankButKeptInPre)
{
    EXPECT_EQ(TextOf("<p>a \n\t  b</p>"), QStringLiteral("a b"));
    EXPECT_EQ(TextOf("<pre>a\n  b\n\nc</pre>"), QStringLiteral("a\n  b\n\nc"));
}

TEST(HtmlTextTest, CellsOfARowAreApart)
{
    EXPECT_EQ(TextOf("<table><tr><td>a</td><td>b</td></tr><tr><td>c</td></tr></table>"),
              QStringLiteral("a b\nc"));
}

TEST(HtmlTextTest, ScriptsStylesAndCommentsAreNotRead)
{
    EXPECT_EQ(TextOf("a<script>if (1 < 2) alert('</p>')</script>b<STYLE>p{}</STYLE>c<!-- <b>d</b> -->e"),
              QStringLiteral("abce"));
}

TEST(HtmlTextTest, EntitiesAreCharactersAndUnknownOnesStayAsTheyStand)
{
    EXPECT_EQ(TextOf("&lt;b&gt; &amp;amp; &#65;&#x42; &auml; &unknown; &; a & b &#0; &#xD800; &#x110000;"),
              QStringLiteral("<b> &amp; AB &auml; &unknown; &; a & b &#0; &#xD800; &#x110000;"));
    EXPECT_EQ(TextOf("&#x1F6D2;"), QString::fromUtf8("\xF0\x9F\x9B\x92"));
}

TEST(HtmlTextTest, QuotedAngleBracketEndsNoTag)
{
    EXPECT_EQ(TextOf("<a title=\"x > y\" href='>'>link</a>"), QStringLiteral("link"));
}

TEST(HtmlTextTest, BareAngleBracketIsText)
{
    EXPECT_EQ(TextOf("1 < 2 and 3 <4"), QStringLiteral("1 < 2 and 3 <4"));
    EXPECT_EQ(TextOf("<"), QStringLiteral("<"));
    EXPECT_EQ(TextOf("</"), QStringLiteral("</"));
}

TEST(HtmlTextTest, WhatNeverEndsSwallowsTheRest)
{
    EXPECT_EQ(TextOf("a<!-- b"), QStringLiteral("a"));
    EXPECT_EQ(TextOf("a<b title=\"c"), QStringLiteral("a"));
    EXPECT_EQ(TextOf("a<script>b"), QStringLiteral("a"));
    EXPECT_EQ(TextOf(""), QString());
}

TEST(HtmlTextTest, DeeplyNestedMarkupTakesTimeByItsLengthOnly)
{
    QElapsedTimer clock;
    clock.start();
    const QString deep = QStringLiteral("<div>").repeated(100000) + QStringLiteral("x");
    EXPECT_EQ(HtmlText::Read(deep).text, QStringLiteral("x"));
    EXPECT_EQ(HtmlText::Read(QStringLiteral("&").repeated(500000)).text.size(), 500000);
    EXPECT_LT(clock.elapsed(), 20000) << "half a million characters, with a sanitizer";
}
