#include "base/DpiTool.h"
#include "base/IDpiAdapter.h"

#include <QtGui/QScreen>
#include <QtGui/QWindow>

#include <gtest/gtest.h>

#include <memory>

namespace {

// Read by Qt when the application object is made: the one screen that there is in tests is a sharp one.
// Moving to it is told as Qt tells it, by the window's signal.
const bool IsSharp = qputenv("QT_FONT_DPI", "144");

class CountingAdapter final : public IDpiAdapter
{
public:
    void AdjustForDpi() override { ++m_count; }
    int GetCount() const { return m_count; }

private:
    int m_count = 0;
};

class DpiToolScreenTest : public ::testing::Test
{
protected:
    DpiToolScreenTest()
    {
        EXPECT_TRUE(IsSharp);
        EXPECT_EQ(m_window->screen()->logicalDotsPerInch(), 144.0);
    }
    ~DpiToolScreenTest() override
    {
        DpiTool::FollowScreenOf(nullptr);
        DpiTool::SetScreenDpi(0);
        DpiTool::SetScale(1);
    }

    std::unique_ptr<QWindow> m_window = std::make_unique<QWindow>();
};

#ifdef Q_OS_MACOS
constexpr double SharpScale = 2;
#else
constexpr double SharpScale = 1.5;
#endif

TEST_F(DpiToolScreenTest, FollowsTheScreenThatTheWindowIsOn)
{
    const CountingAdapter adapter;
    EXPECT_EQ(DpiTool::GetScale(), 1.0);
    DpiTool::FollowScreenOf(m_window.get());
    EXPECT_EQ(DpiTool::GetScale(), SharpScale);
    EXPECT_EQ(adapter.GetCount(), 1);
}

TEST_F(DpiToolScreenTest, AdaptersAreToldWhenTheWindowMovesToAnotherScreen)
{
    DpiTool::FollowScreenOf(m_window.get());
    DpiTool::SetScreenDpi(0);
    const CountingAdapter adapter;
    Q_EMIT m_window->screenChanged(m_window->screen());
    EXPECT_EQ(DpiTool::GetScale(), SharpScale);
    EXPECT_EQ(adapter.GetCount(), 1);
    // The same resolution there.
    Q_EMIT m_window->screenChanged(m_window->screen());
    EXPECT_EQ(adapter.GetCount(), 1);
}

TEST_F(DpiToolScreenTest, AdaptersAreToldWhenTheScreenItselfChanges)
{
    DpiTool::FollowScreenOf(m_window.get());
    const CountingAdapter adapter;
    Q_EMIT m_window->screen()->logicalDotsPerInchChanged(96 * 2);
    EXPECT_EQ(DpiTool::GetScale(), 96 * 2 / (144 / SharpScale));
    EXPECT_EQ(adapter.GetCount(), 1);
}

TEST_F(DpiToolScreenTest, TheUsersChoiceStaysWhenTheWindowMoves)
{
    DpiTool::SetScale(2);
    DpiTool::FollowScreenOf(m_window.get());
    EXPECT_EQ(DpiTool::GetScale(), 2 * SharpScale);
    DpiTool::SetScreenDpi(0);
    Q_EMIT m_window->screenChanged(m_window->screen());
    EXPECT_EQ(DpiTool::GetScale(), 2 * SharpScale);
}

TEST_F(DpiToolScreenTest, WithoutAnyScreenTheScaleStays)
{
    DpiTool::FollowScreenOf(m_window.get());
    Q_EMIT m_window->screenChanged(nullptr);
    EXPECT_EQ(DpiTool::GetScale(), SharpScale);
    // Nor does the former one count any more.
    Q_EMIT m_window->screen()->logicalDotsPerInchChanged(96 * 4);
    EXPECT_EQ(DpiTool::GetScale(), SharpScale);
}

TEST_F(DpiToolScreenTest, AWindowThatIsGoneLeavesTheScale)
{
    DpiTool::FollowScreenOf(m_window.get());
    QScreen* const screen = m_window->screen();
    m_window.reset();
    EXPECT_EQ(DpiTool::GetScale(), SharpScale);
    Q_EMIT screen->logicalDotsPerInchChanged(96 * 4);
    EXPECT_EQ(DpiTool::GetScale(), SharpScale);
}

TEST_F(DpiToolScreenTest, OnlyTheWindowOfTheLastCallIsFollowed)
{
    QWindow dialog;
    DpiTool::FollowScreenOf(&dialog);
    DpiTool::FollowScreenOf(m_window.get());
    DpiTool::SetScreenDpi(0);
    Q_EMIT dialog.screenChanged(dialog.screen());
    EXPECT_EQ(DpiTool::GetScale(), 1.0);
    Q_EMIT m_window->screenChanged(m_window->screen());
    EXPECT_EQ(DpiTool::GetScale(), SharpScale);
}

TEST_F(DpiToolScreenTest, NoWindowEndsIt)
{
    DpiTool::FollowScreenOf(m_window.get());
    DpiTool::FollowScreenOf(nullptr);
    DpiTool::SetScreenDpi(0);
    Q_EMIT m_window->screenChanged(m_window->screen());
    Q_EMIT m_window->screen()->logicalDotsPerInchChanged(96 * 4);
    EXPECT_EQ(DpiTool::GetScale(), 1.0);
}

class Follower final : public IDpiAdapter
{
public:
    explicit Follower(QWindow* window) : m_window(window) {}
    void AdjustForDpi() override { DpiTool::FollowScreenOf(m_window); }

private:
    QWindow* m_window;
};

TEST_F(DpiToolScreenTest, AnAdapterMayHaveAnotherWindowFollowed)
{
    QWindow other;
    const Follower follower(&other);
    DpiTool::FollowScreenOf(m_window.get());
    EXPECT_EQ(DpiTool::GetScale(), SharpScale);
    DpiTool::SetScreenDpi(0);
    Q_EMIT other.screenChanged(other.screen());
    EXPECT_EQ(DpiTool::GetScale(), SharpScale);
}

} // namespace
