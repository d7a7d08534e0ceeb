#include "demo/DemoMerchant.h"

#include "records/ConfigurationLimits.h"

namespace TLGateway {

namespace {

AutoRunEntry Page(const char* itemId, const char* name, const std::string& url, bool isSystem)
{
    AutoRunEntry entry;
    entry.itemId = itemId;
    entry.name = name;
    entry.url = url;
    entry.systemItem = isSystem;
    entry.checked = true;
    return entry;
}

AutoRunEntry App(const char* itemId, const char* name, const char* serviceCode)
{
    AutoRunEntry entry;
    entry.itemId = itemId;
    entry.name = name;
    entry.url = serviceCode;
    entry.checked = true;
    entry.type = AppEntryType;
    return entry;
}

AppRecord CatalogueApp(const std::string& base, const char* name, const std::string& serviceCode,
                       int availability)
{
    return {name, serviceCode, base + "/demo/icons/" + serviceCode + ".svg", base + "/demo/" + serviceCode,
            availability};
}

} // namespace

AutoRunConfiguration DemoMerchant::Configuration(const std::string& base)
{
    AutoRunConfiguration configuration;
    configuration.systemItems = {
        Page("8D2C6F0E-4A57-4E0B-9C55-6D3B0C5A7E01", "Today", base + "/demo/today", true),
        Page("8D2C6F0E-4A57-4E0B-9C55-6D3B0C5A7E02", "Messages", base + "/demo/messages", true),
    };
    configuration.customItems = {
        Page("{5b0f8c1e-7d34-4a86-b1c2-93e5d7f04a11}", "Supplier portal", base + "/demo/supplier", false),
        Page("{5b0f8c1e-7d34-4a86-b1c2-93e5d7f04a12}", "Delivery calendar", base + "/demo/calendar", false),
    };
    configuration.pluginItems = {
        App("{e6a1d2b4-0c9f-4f3e-8a57-2b6c4d8e9f21}", "Orders", "orders"),
        App("{e6a1d2b4-0c9f-4f3e-8a57-2b6c4d8e9f22}", "Inventory", "inventory"),
        App("{e6a1d2b4-0c9f-4f3e-8a57-2b6c4d8e9f23}", "Shipping", "shipping"),
    };
    // Not the first to open, so that it can be seen coming to the front.
    configuration.pluginItems.front().activeItem = true;
    return configuration;
}

std::vector<AppRecord> DemoMerchant::Apps(const std::string& base)
{
    return {
        CatalogueApp(base, "Orders", "orders", 0),          CatalogueApp(base, "Inventory", "inventory", 0),
        CatalogueApp(base, "Shipping", "shipping", 0),      CatalogueApp(base, "Campaigns", "campaigns", 0),
        CatalogueApp(base, "Reviews", "reviews", 0),        CatalogueApp(base, "Returns", "returns", 0),
        CatalogueApp(base, "Help centre", "helpcentre", 0), CatalogueApp(base, "Payouts", "payouts", 1),
    };
}

} // namespace TLGateway
