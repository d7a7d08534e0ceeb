#include "ConfigCommands.h"

#include "CommandError.h"
#include "DatabaseOption.h"
#include "PrettyJson.h"
#include "base/Text.h"
#include "base/TimeStamp.h"
#include "records/ConfigurationJson.h"
#include "records/ConfigurationLimits.h"
#include "json/BusinessJson.h"
#include "json/InvalidInput.h"

#include <CLI/CLI.hpp>

#include <iomanip>
#include <memory>
#include <ostream>
#include <string>

namespace TLGateway {

namespace {

std::unique_ptr<IStore> OpenStoreWithUser(const CommandContext& context, const std::string& pin)
{
    auto store = context.OpenStore(CommandContext::Database::MustExist);
    if (!store->FindUser(pin)) {
        throw CommandError("there is no user " + Quoted(pin));
    }
    return store;
}

StoredConfiguration FindRevision(IStore& store, const std::string& pin, std::int64_t revision)
{
    for (const StoredConfiguration& stored : store.ListRevisions(pin)) {
        if (stored.revision == revision) {
            return stored;
        }
    }
    throw CommandError("user " + Quoted(pin) + " has no revision " + std::to_string(revision) +
                       "; \"config history\" lists the kept ones");
}

// Revision 0 asks for the newest.
void ShowConfiguration(const CommandContext& context, const std::string& pin, std::int64_t revision)
{
    const auto store = OpenStoreWithUser(context, pin);
    const StoredConfiguration stored =
        revision == 0 ? store->FindConfiguration(pin) : FindRevision(*store, pin, revision);
    boost::json::object object = ToJson(stored.configuration);
    object["revision"] = stored.revision;
    context.out << PrettyJson(object);
}

void ShowHistory(const CommandContext& context, const std::string& pin)
{
    const auto store = OpenStoreWithUser(context, pin);
    context.out << "revision  written (UTC)        by        system  custom  apps\n";
    for (const StoredConfiguration& stored : store->ListRevisions(pin)) {
        context.out << std::right << std::setw(8) << stored.revision << "  "
                    << FormatTimeStamp(stored.writtenAt) << "  " << std::left << std::setw(8) << stored.author
                    << std::right << std::setw(8) << stored.configuration.systemItems.size() << std::setw(8)
                    << stored.configuration.customItems.size() << std::setw(6)
                    << stored.configuration.pluginItems.size() << '\n';
    }
}

AutoRunConfiguration ReadConfigurationFile(const std::string& path)
{
    try {
        const boost::json::value document = ParseBusinessJson(ReadTextFile(path));
        const JsonObjectReader lists(document, "$");
        // What "config show" prints can be read again.
        lists.AllowOnly({"customItems", "pluginItems", "revision", "systemItems"});
        AutoRunConfiguration configuration = ReadConfiguration(lists, ConfigurationSource::Operator);
        CheckLimits(configuration, ConfigurationSource::Operator, "$");
        return configuration;
    } catch (const InvalidInput& invalid) {
        throw CommandError(path + ": " + invalid.what());
    }
}

void ImportConfiguration(const CommandContext& context, const std::string& pin, const std::string& path)
{
    const AutoRunConfiguration configuration = ReadConfigurationFile(path);
    const auto store = OpenStoreWithUser(context, pin);
    AwaitWrite([&](IStore::WriteDone done) {
        store->EditConfiguration(
            pin, "operator",
            [&configuration](const AutoRunConfiguration&) { return AutoRunConfiguration(configuration); },
            std::move(done));
    });
    context.out << "configuration of user " << Quoted(pin) << " imported as revision "
                << store->FindConfiguration(pin).revision << '\n';
}

} // namespace

void AddConfigCommands(CLI::App& app, CommandContext& context)
{
    CLI::App* config = app.add_subcommand("config", "The users' configurations");
    config->require_subcommand(1);

    const auto pin = std::make_shared<std::string>();
    const auto path = std::make_shared<std::string>();
    const auto revision = std::make_shared<std::int64_t>(0);

    CLI::App* show = config->add_subcommand("show", "Print a user's configuration as JSON");
    AddDatabaseOption(*show, context);
    show->add_option("PIN", *pin, "The user's account name")->required();
    show->add_option("--revision", *revision, "An earlier revision")->check(CLI::PositiveNumber);
    show->callback([&context, pin, revision] { ShowConfiguration(context, *pin, *revision); });

    CLI::App* history = config->add_subcommand("history", "List the kept revisions, newest first");
    AddDatabaseOption(*history, context);
    history->add_option("PIN", *pin, "The user's account name")->required();
    history->callback([&context, pin] { ShowHistory(context, *pin); });

    CLI::App* importConfiguration =
        config->add_subcommand("import", "Replace a user's configuration, system entries included");
    AddDatabaseOption(*importConfiguration, context);
    importConfiguration->add_option("PIN", *pin, "The user's account name")->required();
    importConfiguration
        ->add_option("FILE", *path, "The three lists as one JSON object, as \"config show\" prints it")
        ->required();
    importConfiguration->callback([&context, pin, path] { ImportConfiguration(context, *pin, *path); });
}

} // namespace TLGateway
