#include "PlainPageContent.h"

#include <gtest/gtest.h>

TEST(PlainPageContentTest, TextIsWhatTheTypeSays)
{
    for (const char* const type : {"text/html; charset=utf-8", "TEXT/PLAIN", "application/json",
                                   "application/problem+json", "image/svg+xml", "application/xhtml+xml"}) {
        EXPECT_TRUE(PlainPageContent::IsText(type, QByteArray("\0", 1))) << type;
    }
    for (const char* const type : {"image/png", "application/pdf", "application/octet-stream", "video/mp4"}) {
        EXPECT_FALSE(PlainPageContent::IsText(type, "text")) << type;
    }
}

TEST(PlainPageContentTest, WithoutATypeTheBeginningSays)
{
    EXPECT_TRUE(PlainPageContent::IsText(QByteArray(), "words"));
    EXPECT_FALSE(PlainPageContent::IsText(QByteArray(), QByteArray("PK\0\0", 4)));
}

TEST(PlainPageContentTest, TypeHasNoParametersAndNoCapitals)
{
    EXPECT_EQ(PlainPageContent::TypeOf(" Text/HTML ; charset=x"), QStringLiteral("text/html"));
    EXPECT_EQ(PlainPageContent::TypeOf(QByteArray()), QString());
}

TEST(PlainPageContentTest, PlainTextStaysAsItIs)
{
    const PlainPageContent content = PlainPageContent::Read("text/plain", "<b>a</b>\n  &amp;");
    EXPECT_EQ(content.text, QStringLiteral("<b>a</b>\n  &amp;"));
    EXPECT_EQ(content.title, QString());
}

TEST(PlainPageContentTest, HtmlHasTitleAndText)
{
    const PlainPageContent content = PlainPageContent::Read("text/html", "<title>T</title><p>a</p>");
    EXPECT_EQ(content.title, QStringLiteral("T"));
    EXPECT_EQ(content.text, QStringLiteral("a"));
}

TEST(PlainPageContentTest, EncodingIsThatOfTheTypeTheDocumentOrTheByteOrderMark)
{
    const QString umlaut(QChar(0x00E4));
    EXPECT_EQ(PlainPageContent::Read("text/plain", "\xC3\xA4").text, umlaut) << "UTF-8 where none is said";
    EXPECT_EQ(PlainPageContent::Read("text/plain; charset=\"ISO-8859-1\"", "\xE4").text, umlaut);
    EXPECT_EQ(PlainPageContent::Read("text/html", "<meta charset=iso-8859-1>\xE4").text, umlaut);
    EXPECT_EQ(PlainPageContent::Read("text/plain; charset=iso-8859-1", "\xEF\xBB\xBF\xC3\xA4").text, umlaut);
    EXPECT_EQ(PlainPageContent::Read("text/plain; charset=GB18030", "\xD6\xD0").text, QString(QChar(0x4E2D)));
    EXPECT_EQ(PlainPageContent::Read("text/plain; charset=no-such", "\xC3\xA4").text, umlaut);
}

TEST(PlainPageContentTest, BytesThatAreNoTextDoNoHarm)
{
    QByteArray bytes;
    for (int i = 0; i < 4096; ++i) {
        bytes.append(static_cast<char>(i * 7));
    }
    EXPECT_FALSE(PlainPageContent::Read("text/html; charset=utf-16", bytes).text.isEmpty());
}
