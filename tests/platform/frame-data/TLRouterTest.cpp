#include "frame-data/TLRouter.h"

#include "frame-data/ITabOpener.h"
#include "frame-data/PluginOpenInfo.h"
#include "frame-data/TabOpenInfo.h"

#include "base/Provided.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

class RecordingOpener final : public ITabOpener
{
public:
    void OpenPlugin(const PluginOpenInfo& info, int index) override
    {
        plugins.push_back(info);
        indexes.push_back(index);
    }
    void OpenUrl(const TabOpenInfo& info, int index) override
    {
        pages.push_back(info);
        indexes.push_back(index);
    }

    std::vector<PluginOpenInfo> plugins;
    std::vector<TabOpenInfo> pages;
    std::vector<int> indexes;
};

TEST(TLRouterTest, WithoutAnOpenerNothingHappens)
{
    TLRouter::OpenPlugin(PluginOpenInfo(), -1);
    TLRouter::OpenUrlWithNewTab(QStringLiteral("https://x.test/"), true, false, -1, false, QString(), true);
}

TEST(TLRouterTest, HandsOnAppsUnchanged)
{
    RecordingOpener opener;
    const Provided<ITabOpener> provided(&opener);
    PluginOpenInfo info;
    info.activation = QStringLiteral("0");
    info.source = QStringLiteral("somebody");
    info.serviceCode = QStringLiteral("orders");
    TLRouter::OpenPlugin(info, 3);
    ASSERT_EQ(opener.plugins.size(), 1U);
    EXPECT_EQ(opener.plugins[0].activation, info.activation);
    EXPECT_EQ(opener.plugins[0].source, info.source);
    EXPECT_EQ(opener.plugins[0].serviceCode, info.serviceCode);
    EXPECT_FALSE(opener.plugins[0].isDelay);
    EXPECT_EQ(opener.indexes, std::vector<int>{3});
}

TEST(TLRouterTest, EachArgumentOfAPageArrivesInItsPlace)
{
    RecordingOpener opener;
    const Provided<ITabOpener> provided(&opener);
    const QString address = QStringLiteral("https://x.test/");
    TLRouter::OpenUrlWithNewTab(address, true, false, -1, false, QString(), false);
    TLRouter::OpenUrlWithNewTab(address, false, true, 2, false, QStringLiteral("title"), false);
    TLRouter::OpenUrlWithNewTab(address, false, false, 0, true, QString(), false);
    TLRouter::OpenUrlWithNewTab(QStringLiteral("not an address"), false, false, 0, false, QString(), true);
    ASSERT_EQ(opener.pages.size(), 4U);
    const auto flags = [&opener](std::size_t page) {
        const TabOpenInfo& info = opener.pages[page];
        return std::vector<bool>{info.closable, info.isDelay, info.activate, info.remember};
    };
    EXPECT_EQ(flags(0), std::vector<bool>({true, false, false, false}));
    EXPECT_EQ(flags(1), std::vector<bool>({false, true, false, false}));
    EXPECT_EQ(flags(2), std::vector<bool>({false, false, true, false}));
    EXPECT_EQ(flags(3), std::vector<bool>({false, false, false, true}));
    EXPECT_EQ(opener.pages[0].address, address);
    EXPECT_EQ(opener.pages[1].title, QStringLiteral("title"));
    EXPECT_EQ(opener.pages[3].address, QStringLiteral("not an address"));
    EXPECT_EQ(opener.indexes, std::vector<int>({-1, 2, 0, 0}));
}

} // namespace
