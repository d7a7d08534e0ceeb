#include "DemoCommand.h"

#include "CommandError.h"
#include "DatabaseOption.h"
#include "base/Text.h"
#include "demo/DemoMerchant.h"
#include "methods/PasswordHasher.h"
#include "server/AppKeyWatcher.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <ostream>
#include <string>

namespace TLGateway {

namespace {

std::string CheckBase(std::string base)
{
    while (!base.empty() && base.back() == '/') {
        base.pop_back();
    }
    const bool isWeb = base.rfind("http://", 0) == 0 || base.rfind("https://", 0) == 0;
    if (!isWeb || base.find_first_of(" ?#\"\\") != std::string::npos || !IsValidUtf8(base)) {
        throw CommandError("--pages " + Quoted(base) + ": expected an address such as http://127.0.0.1:8080");
    }
    return base;
}

void SetUpDemo(const CommandContext& context, const std::string& pages)
{
    const std::string base = CheckBase(pages);
    const auto store = context.OpenStore(CommandContext::Database::MayBeMade);
    AwaitWrite([&](IStore::WriteDone done) {
        store->SetAppKey(DemoMerchant::AppKey, DemoMerchant::AppSecret, std::move(done));
    });
    const std::string hash = PasswordHasher().Hash(DemoMerchant::Password);
    AwaitWrite([&](IStore::WriteDone done) {
        store->PutUser({DemoMerchant::Pin, DemoMerchant::BelongType, hash}, std::move(done));
    });
    AwaitWrite([&](IStore::WriteDone done) {
        store->SetSwitch({DemoMerchant::FunctionSwitchNumber, true, true}, std::move(done));
    });
    AwaitWrite(
        [&](IStore::WriteDone done) { store->ReplaceApps(DemoMerchant::Apps(base), std::move(done)); });
    AwaitWrite([&](IStore::WriteDone done) {
        store->EditConfiguration(
            DemoMerchant::Pin, "operator",
            [&base](const AutoRunConfiguration&) { return DemoMerchant::Configuration(base); },
            std::move(done));
    });
    AppKeyWatcher::LetOthersNotice();
    context.out << "demo merchant ready: pin and password " << Quoted(DemoMerchant::Pin) << ", app key "
                << Quoted(DemoMerchant::AppKey) << ", pages below " << base << "/demo/\n";
}

} // namespace

void AddDemoCommand(CLI::App& app, CommandContext& context)
{
    const auto pages = std::make_shared<std::string>();
    CLI::App* demo = app.add_subcommand("demo", "Set up the demo merchant, or reset it");
    AddDatabaseOption(*demo, context);
    demo->add_option("--pages", *pages, "Address of a gateway that serves the demo pages")->required();
    demo->callback([&context, pages] { SetUpDemo(context, *pages); });
}

} // namespace TLGateway
