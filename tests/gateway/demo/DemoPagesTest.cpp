#include "demo/DemoPages.h"

#include "demo/DemoMerchant.h"
#include "records/ConfigurationLimits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

namespace TLGateway {

using testing::HasSubstr;
using testing::Not;

namespace {

const std::string Base = "http://127.0.0.1:1";

const DemoPages::Page* FindByAddress(const DemoPages& pages, const std::string& address)
{
    const std::string prefix = Base + "/demo/";
    return address.rfind(prefix, 0) == 0 ? pages.Find(address.substr(prefix.size())) : nullptr;
}

} // namespace

TEST(DemoPagesTest, EveryAddressOfTheDemoMerchantIsServed)
{
    const DemoPages pages;
    const AutoRunConfiguration configuration = DemoMerchant::Configuration(Base);
    for (const auto& entries : {configuration.systemItems, configuration.customItems}) {
        EXPECT_EQ(entries.size(), 2U);
        for (const AutoRunEntry& entry : entries) {
            EXPECT_NE(FindByAddress(pages, entry.url), nullptr) << entry.url;
        }
    }
    for (const AppRecord& app : DemoMerchant::Apps(Base)) {
        ASSERT_NE(FindByAddress(pages, app.address), nullptr) << app.address;
        ASSERT_NE(FindByAddress(pages, app.iconUrl), nullptr) << app.iconUrl;
        EXPECT_EQ(FindByAddress(pages, app.iconUrl)->contentType, "image/svg+xml");
    }
}

TEST(DemoPagesTest, DemoConfigurationKeepsTheLimitsAndOpensALaterEntryFirst)
{
    const AutoRunConfiguration configuration = DemoMerchant::Configuration(Base);
    EXPECT_NO_THROW(CheckLimits(configuration, ConfigurationSource::Operator, "$"));
    std::set<std::string> codes;
    for (const AppRecord& app : DemoMerchant::Apps(Base)) {
        codes.insert(app.serviceCode);
    }
    EXPECT_EQ(codes.size(), 8U);
    ASSERT_EQ(configuration.pluginItems.size(), 3U);
    for (const AutoRunEntry& entry : configuration.pluginItems) {
        EXPECT_EQ(codes.count(entry.url), 1U) << entry.url;
    }
    EXPECT_FALSE(configuration.systemItems[0].activeItem);
}

TEST(DemoPagesTest, PagesAreCompleteAndLoadNothingFromElsewhere)
{
    const DemoPages pages;
    for (const char* name : {"today", "messages", "supplier", "calendar", "orders", "inventory", "shipping",
                             "campaigns", "reviews", "returns", "helpcentre", "payouts"}) {
        const DemoPages::Page* page = pages.Find(name);
        ASSERT_NE(page, nullptr) << name;
        EXPECT_THAT(page->content, HasSubstr("<title>"));
        EXPECT_THAT(page->content, HasSubstr(std::string("href=\"/demo/icons/") + name + ".svg\""));
        EXPECT_THAT(page->content, Not(HasSubstr("{{"))) << name;
        EXPECT_THAT(page->content, Not(HasSubstr("src=\"http"))) << name;
        EXPECT_THAT(page->content, Not(HasSubstr("url("))) << name;
    }
}

TEST(DemoPagesTest, UnknownPageIsNull)
{
    const DemoPages pages;
    EXPECT_EQ(pages.Find(""), nullptr);
    EXPECT_EQ(pages.Find("shell.html"), nullptr);
    EXPECT_EQ(pages.Find("icons/"), nullptr);
}

} // namespace TLGateway
