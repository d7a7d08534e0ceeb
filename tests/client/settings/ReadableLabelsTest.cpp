#include "ReadableLabels.h"

#include <QtGui/QImage>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <gtest/gtest.h>

namespace {

const QString Counter =
    QStringLiteral("<font color=\"#999999\">(</font><font color=\"#333333\">88</font><font "
                   "color=\"#999999\">/5)</font>");

/// The strongest contrast to the background in what `widget` shows.
double StrongestContrast(QWidget* widget, const QColor& background)
{
    const QImage picture = widget->grab().toImage();
    double strongest = 1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            strongest = std::max(strongest, ReadableLabels::Contrast(picture.pixelColor(x, y), background));
        }
    }
    return strongest;
}

TEST(ReadableLabelsTest, TheContrastIsThatOfWcag)
{
    EXPECT_NEAR(ReadableLabels::Contrast(Qt::black, Qt::white), 21.0, 0.01);
    EXPECT_NEAR(ReadableLabels::Contrast(Qt::white, Qt::white), 1.0, 0.01);
    EXPECT_NEAR(ReadableLabels::Contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
}

TEST(ReadableLabelsTest, AColourThatCanBeReadStays)
{
    const QColor dark(0x33, 0x33, 0x33);
    EXPECT_EQ(ReadableLabels::Readable(dark, Qt::white, Qt::black), dark);
}

TEST(ReadableLabelsTest, AColourThatCannotIsMovedNoFartherThanItMust)
{
    const QColor moved = ReadableLabels::Readable(QColor(0x99, 0x99, 0x99), Qt::white, Qt::black);
    EXPECT_GE(ReadableLabels::Contrast(moved, Qt::white), 4.5);
    EXPECT_LT(ReadableLabels::Contrast(moved, Qt::white), 6.0);
}

TEST(ReadableLabelsTest, DarkTextOfAPageIsReadableOnADarkPage)
{
    const QColor background(0x1b, 0x22, 0x2a);
    QWidget page;
    QPalette colors;
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base}) {
        colors.setColor(role, background);
    }
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText}) {
        colors.setColor(role, QColor(0xe4, 0xeb, 0xf0));
    }
    page.setPalette(colors);
    auto* layout = new QVBoxLayout(&page);
    auto* label = new QLabel(QStringLiteral("<font color=\"#333333\">88888</font>"));
    layout->addWidget(label);
    page.resize(200, 60);
    EXPECT_LT(StrongestContrast(&page, background), 2.0);
    new ReadableLabels(&page);
    EXPECT_GE(StrongestContrast(&page, background), 4.0); // the edges of letters are smoothed
    EXPECT_EQ(label->text(), QStringLiteral("<font color=\"#333333\">88888</font>"));
}

TEST(ReadableLabelsTest, TheTextStaysInItsPlace)
{
    QWidget page;
    auto* layout = new QVBoxLayout(&page);
    auto* label = new QLabel(Counter);
    layout->addWidget(label);
    page.resize(200, 60);
    const auto bounds = [&page] {
        const QImage picture = page.grab().toImage();
        QRect inked;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) != picture.pixelColor(0, 0)) {
                    inked |= QRect(x, y, 1, 1);
                }
            }
        }
        return inked;
    };
    const QRect before = bounds();
    ASSERT_FALSE(before.isEmpty());
    new ReadableLabels(&page);
    const QRect after = bounds();
    EXPECT_NEAR(after.left(), before.left(), 1);
    EXPECT_NEAR(after.right(), before.right(), 1);
    EXPECT_NEAR(after.top(), before.top(), 1);
    EXPECT_NEAR(after.bottom(), before.bottom(), 1);
}

} // namespace
