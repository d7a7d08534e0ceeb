#include "look/ScaleManager.h"

#include "base/DpiTool.h"

#include <QtGui/QFontInfo>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>

#include <gtest/gtest.h>

namespace {

// Qt reads it when the application is created.
const bool IsSharp = qputenv("QT_FONT_DPI", "144");

class ScaleManagerScreenTest : public ::testing::Test
{
protected:
    ScaleManagerScreenTest()
    {
        EXPECT_TRUE(IsSharp);
        QFont font = m_before;
        font.setPointSize(9); // 12 px on the usual screen, 18 on this one
        QApplication::setFont(font);
    }
    ~ScaleManagerScreenTest() override
    {
        DpiTool::FollowScreenOf(nullptr);
        DpiTool::SetScreenDpi(0);
        DpiTool::SetScale(1);
        QApplication::setFont(m_before);
    }

    static int GetTextSize() { return QFontInfo(QApplication::font()).pixelSize(); }

    const QFont m_before = QApplication::font();
    QWindow m_window;
};

TEST_F(ScaleManagerScreenTest, ScreensScaleAppliesToTheFontOnlyOnce)
{
    ScaleManager scales;
    scales.Apply(100);
    ASSERT_EQ(GetTextSize(), 18);
    DpiTool::FollowScreenOf(&m_window);
    ASSERT_EQ(DpiTool::GetScale(), 1.5);
    EXPECT_EQ(GetTextSize(), 18);
    scales.Apply(200);
    EXPECT_EQ(GetTextSize(), 36);
}

TEST_F(ScaleManagerScreenTest, FontInPixelsIsMeantForAUsualScreen)
{
    QFont font = QApplication::font();
    font.setPixelSize(13);
    QApplication::setFont(font);
    ScaleManager scales;
    DpiTool::FollowScreenOf(&m_window);
    EXPECT_EQ(GetTextSize(), qRound(1.5 * 13));
}

} // namespace
