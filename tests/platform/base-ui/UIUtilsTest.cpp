#include "base-ui/UIUtils.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QTextDocumentFragment>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>

#include <gtest/gtest.h>

namespace {

QString Shown(const QLabel& label)
{
    return label.textFormat() == Qt::RichText ? QTextDocumentFragment::fromHtml(label.text()).toPlainText()
                                              : label.text();
}

} // namespace

TEST(UIUtilsTest, ElidesAtTheEndToTheWidth)
{
    const QFont font;
    const QString text = QStringLiteral("https://shop.example/a/long/address");
    const QString elided = UIUtils::GetElidedText(text, font, 100, Qt::ElideRight);
    EXPECT_LE(QFontMetrics(font).horizontalAdvance(elided), 100);
    EXPECT_TRUE(elided.endsWith(QChar(0x2026)));
    EXPECT_TRUE(text.startsWith(elided.left(elided.size() - 1)));
    EXPECT_EQ(UIUtils::GetElidedText(text, font, 10000), text);
}

TEST(UIUtilsTest, ACutOffTextIsTheToolTip)
{
    QLabel label;
    UIUtils::SetElidedText(&label, QStringLiteral("<b>a</b> text that is cut off"), 60);
    EXPECT_TRUE(label.text().endsWith(QChar(0x2026)));
    EXPECT_EQ(QTextDocumentFragment::fromHtml(label.toolTip()).toPlainText(),
              QStringLiteral("<b>a</b> text that is cut off"));
    EXPECT_EQ(label.accessibleName(), QStringLiteral("<b>a</b> text that is cut off"));
    UIUtils::SetElidedText(&label, QStringLiteral("short"), 600);
    EXPECT_EQ(label.text(), QStringLiteral("short"));
    EXPECT_TRUE(label.toolTip().isEmpty());
}

TEST(UIUtilsTest, HighlightsEveryOccurrenceInAnyCase)
{
    EXPECT_EQ(UIUtils::HighlightText(QStringLiteral("Set the URL, url"), QStringLiteral("uRl"),
                                     QStringLiteral("#123456")),
              QStringLiteral("Set the <span style=\"color:#123456; font-weight:600\">URL</span>, "
                             "<span style=\"color:#123456; font-weight:600\">url</span>"));
}

TEST(UIUtilsTest, EscapesTextAndKeyword)
{
    const QString text = QStringLiteral("<i>https://x.test/?a=<b>&amp;");
    const QString html = UIUtils::HighlightText(text, QStringLiteral("<b>&"), QStringLiteral("#123456"));
    EXPECT_TRUE(html.contains(QStringLiteral(">&lt;b&gt;&amp;</span>amp;"))) << qPrintable(html);
    EXPECT_EQ(QTextDocumentFragment::fromHtml(html).toPlainText(), text);
    EXPECT_EQ(UIUtils::HighlightText(text, QString(), QStringLiteral("#123456")), text.toHtmlEscaped());
    EXPECT_EQ(UIUtils::HighlightText(text, QStringLiteral("none"), QStringLiteral("#123456")),
              text.toHtmlEscaped());
}

TEST(UIUtilsTest, ALabelKeepsItsTextThroughHighlights)
{
    QLabel label(QStringLiteral("Set the  URL & more <i>"));
    UIUtils::HighlightLabel(&label, QStringLiteral("url"));
    EXPECT_EQ(Shown(label), QStringLiteral("Set the  URL & more <i>"));
    EXPECT_NE(label.text(), QStringLiteral("Set the  URL & more <i>"));
    UIUtils::HighlightLabel(&label, QStringLiteral("span"));
    EXPECT_EQ(Shown(label), QStringLiteral("Set the  URL & more <i>"));
    EXPECT_FALSE(label.text().contains(QStringLiteral("<span")));
    UIUtils::HighlightLabel(&label, QString());
    EXPECT_EQ(label.text(), QStringLiteral("Set the  URL & more <i>"));
    EXPECT_NE(label.textFormat(), Qt::RichText);
}

TEST(UIUtilsTest, ATextSetInBetweenIsTheNewText)
{
    QLabel label(QStringLiteral("old url"));
    label.show();
    UIUtils::HighlightLabel(&label, QStringLiteral("url"));
    label.setText(QStringLiteral("https://x.test/?a=1&b=2"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return label.textFormat() == Qt::AutoText; }));
    UIUtils::HighlightLabel(&label, QStringLiteral("test"));
    EXPECT_EQ(Shown(label), QStringLiteral("https://x.test/?a=1&b=2"));
    EXPECT_TRUE(label.text().contains(QStringLiteral(">test</span>")));
}

TEST(UIUtilsTest, TheHighlightFollowsTheTheme)
{
    QLabel label(QStringLiteral("Set the URL"));
    QPalette palette = label.palette();
    palette.setColor(QPalette::Link, QColor(1, 2, 3));
    label.setPalette(palette);
    UIUtils::HighlightLabel(&label, QStringLiteral("url"));
    EXPECT_TRUE(label.text().contains(QStringLiteral("#010203")));
    palette.setColor(QPalette::Link, QColor(4, 5, 6));
    label.setPalette(palette);
    EXPECT_TRUE(label.text().contains(QStringLiteral("#040506")));
    EXPECT_EQ(Shown(label), QStringLiteral("Set the URL"));
}

TEST(UIUtilsTest, WithoutALabelNothingHappens)
{
    UIUtils::HighlightLabel(nullptr, QStringLiteral("url"));
}
