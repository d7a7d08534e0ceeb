#include "CatalogueCommands.h"

#include "CommandError.h"
#include "DatabaseOption.h"
#include "PrettyJson.h"
#include "records/AppJson.h"
#include "json/BusinessJson.h"
#include "json/InvalidInput.h"

#include <CLI/CLI.hpp>

#include <boost/json/array.hpp>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace TLGateway {

namespace {

void ImportApps(const CommandContext& context, const std::string& path)
{
    std::vector<AppRecord> apps;
    try {
        apps = ReadApps(ParseBusinessJson(ReadTextFile(path)));
    } catch (const InvalidInput& invalid) {
        throw CommandError(path + ": " + invalid.what());
    }
    const auto store = context.OpenStore(CommandContext::Database::MayBeMade);
    AwaitWrite([&](IStore::WriteDone done) { store->ReplaceApps(apps, std::move(done)); });
    context.out << apps.size() << " apps imported\n";
}

void ListApps(const CommandContext& context)
{
    boost::json::array catalogue;
    for (const AppRecord& app : context.OpenStore(CommandContext::Database::MustExist)->ListApps()) {
        catalogue.push_back(ToJson(app));
    }
    context.out << PrettyJson(catalogue);
}

void SetSwitch(const CommandContext& context, const FunctionSwitch& functionSwitch)
{
    const auto store = context.OpenStore(CommandContext::Database::MayBeMade);
    AwaitWrite([&](IStore::WriteDone done) { store->SetSwitch(functionSwitch, std::move(done)); });
    context.out << "function switch " << functionSwitch.number
                << (functionSwitch.valid ? " valid" : " not valid")
                << (functionSwitch.display ? ", displayed\n" : ", not displayed\n");
}

} // namespace

void AddCatalogueCommands(CLI::App& app, CommandContext& context)
{
    CLI::App* apps = app.add_subcommand("app", "The catalogue of apps");
    apps->require_subcommand(1);
    const auto path = std::make_shared<std::string>();
    CLI::App* importApps = apps->add_subcommand("import", "Replace the catalogue");
    AddDatabaseOption(*importApps, context);
    importApps
        ->add_option("FILE", *path,
                     "A JSON array of objects with name, serviceCode, iconUrl, address and availability")
        ->required();
    importApps->callback([&context, path] { ImportApps(context, *path); });
    CLI::App* listApps =
        apps->add_subcommand("list", "Show the catalogue, in the form that \"import\" takes");
    AddDatabaseOption(*listApps, context);
    listApps->callback([&context] { ListApps(context); });

    CLI::App* switches = app.add_subcommand("switch", "The function switches");
    switches->require_subcommand(1);
    const auto functionSwitch = std::make_shared<FunctionSwitch>();
    CLI::App* set = switches->add_subcommand("set", "Set a function switch; omitted flags are cleared");
    AddDatabaseOption(*set, context);
    set->add_option("NUMBER", functionSwitch->number, "The number of the switch")
        ->required()
        ->check(CLI::NonNegativeNumber);
    set->add_flag("--valid", functionSwitch->valid, "The function may be used");
    set->add_flag("--display", functionSwitch->display, "The function is shown");
    set->callback([&context, functionSwitch] { SetSwitch(context, *functionSwitch); });
}

} // namespace TLGateway
