#include "frame-core/IBrowserMain.h"

#include "base/Provided.h"

#include <gtest/gtest.h>

namespace {

class EmptyBrowser final : public IBrowserMain
{
public:
    int GetTabCount() const override { return 0; }
    void SelectTab(int) override {}
    IBrowserTab* GetTab(int) const override { return nullptr; }
    QWidget* GetMainWidget() const override { return nullptr; }
};

TEST(IBrowserMainTest, ThereIsNoneUntilTheClientProvidesIt)
{
    EXPECT_EQ(IBrowserMain::GetBrowser(), nullptr);
    {
        EmptyBrowser browser;
        const Provided<IBrowserMain> provided(&browser);
        EXPECT_EQ(IBrowserMain::GetBrowser(), &browser);
    }
    EXPECT_EQ(IBrowserMain::GetBrowser(), nullptr);
}

} // namespace
