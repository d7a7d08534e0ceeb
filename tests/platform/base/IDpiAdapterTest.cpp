#include "base/IDpiAdapter.h"

#include "VTableSlots.h"

#include "base/DpiTool.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using Log = std::vector<std::string>;

class Adapter final : public IDpiAdapter
{
public:
    Adapter(Log* log, std::string name, std::function<void()> adjust = {}, bool followsScale = true)
        : IDpiAdapter(followsScale), m_log(log), m_name(std::move(name)), m_adjust(std::move(adjust))
    {}

    void AdjustForDpi() override
    {
        m_log->push_back(m_name + " at " + std::to_string(DpiTool::ScaleDefault(100)));
        // What is called may destroy this object.
        if (const std::function<void()> adjust = m_adjust) {
            adjust();
        }
    }

private:
    Log* m_log;
    std::string m_name;
    std::function<void()> m_adjust;
};

class IDpiAdapterTest : public ::testing::Test
{
protected:
    ~IDpiAdapterTest() override { DpiTool::SetScale(1); }

    Log log;
};

TEST_F(IDpiAdapterTest, HearsOfEveryChangeAfterItIsMade)
{
    const Adapter a(&log, "a");
    const Adapter b(&log, "b");
    DpiTool::SetScale(1.5);
    EXPECT_EQ(log, Log({"a at 150", "b at 150"}));
    DpiTool::SetScale(1);
    EXPECT_EQ(log, Log({"a at 150", "b at 150", "a at 100", "b at 100"}));
}

TEST_F(IDpiAdapterTest, HearsOfTheScreenAsWell)
{
    const Adapter a(&log, "a");
    DpiTool::SetScreenDpi(100000);
    DpiTool::SetScreenDpi(0);
    EXPECT_EQ(log, Log({"a at 400", "a at 100"}));
}

TEST_F(IDpiAdapterTest, IsNotCalledWhenTheScaleStaysWhatItWas)
{
    const Adapter a(&log, "a");
    DpiTool::SetScale(1);
    DpiTool::SetScreenDpi(0);
    EXPECT_EQ(log, Log());
}

TEST_F(IDpiAdapterTest, OneThatDoesNotFollowIsNeverCalled)
{
    const Adapter a(&log, "a", {}, false);
    DpiTool::SetScale(2);
    EXPECT_EQ(log, Log());
}

TEST_F(IDpiAdapterTest, OneThatIsGoneIsNotCalled)
{
    auto a = std::make_unique<Adapter>(&log, "a");
    const Adapter b(&log, "b");
    a.reset();
    DpiTool::SetScale(2);
    EXPECT_EQ(log, Log({"b at 200"}));
}

TEST_F(IDpiAdapterTest, MayDestroyItselfWhileItIsCalled)
{
    std::unique_ptr<Adapter> a;
    a = std::make_unique<Adapter>(&log, "a", [&a] { a.reset(); });
    const Adapter b(&log, "b");
    DpiTool::SetScale(2);
    DpiTool::SetScale(1.5);
    EXPECT_EQ(log, Log({"a at 200", "b at 200", "b at 150"}));
}

TEST_F(IDpiAdapterTest, MayDestroyOthersBeforeAndBehindIt)
{
    auto first = std::make_unique<Adapter>(&log, "first");
    std::unique_ptr<Adapter> third;
    const Adapter second(&log, "second", [&] {
        first.reset();
        third.reset();
    });
    third = std::make_unique<Adapter>(&log, "third");
    const Adapter fourth(&log, "fourth");
    DpiTool::SetScale(2);
    DpiTool::SetScale(1.5);
    EXPECT_EQ(log, Log({"first at 200", "second at 200", "fourth at 200", "second at 150", "fourth at 150"}));
}

TEST_F(IDpiAdapterTest, MakesItsRowsAnewWithoutTheirBeingCalledForTheSameChange)
{
    std::vector<std::unique_ptr<Adapter>> rows;
    const auto build = [&] {
        rows.clear();
        for (int i = 0; i < 100; ++i) {
            rows.push_back(std::make_unique<Adapter>(&log, "row"));
        }
    };
    const Adapter page(&log, "page", build);
    build();
    DpiTool::SetScale(2);
    EXPECT_EQ(log, Log({"page at 200"}));
    log.clear();
    rows.resize(1);
    DpiTool::SetScale(1);
    EXPECT_EQ(log, Log({"page at 100"}));
    EXPECT_EQ(rows.size(), 100U);
}

TEST_F(IDpiAdapterTest, TheLastScaleSetHoldsWhenAnAdapterSetsOne)
{
    const Adapter before(&log, "before");
    std::unique_ptr<Adapter> made;
    const Adapter setter(&log, "setter", [&] {
        if (!made) {
            made = std::make_unique<Adapter>(&log, "made");
            DpiTool::SetScale(1.5);
        }
    });
    const Adapter after(&log, "after");
    DpiTool::SetScale(2);
    EXPECT_EQ(log, Log({"before at 200", "setter at 200", "before at 150", "setter at 150", "after at 150",
                        "made at 150"}));
    log.clear();
    DpiTool::SetScale(1);
    EXPECT_EQ(log.size(), 4U);
}

TEST_F(IDpiAdapterTest, SlotOneAdjustsAndSlotZeroDestroys)
{
    const VTableSlots<IDpiAdapter> table(new Adapter(&log, "a"));
    table.Call(1);
    EXPECT_EQ(log, Log({"a at 100"}));
    table.CallDeletingDestructor();
    DpiTool::SetScale(2);
    EXPECT_EQ(log, Log({"a at 100"}));
}

} // namespace
