#include "KeyCommands.h"

#include "DatabaseOption.h"
#include "base/Text.h"
#include "server/AppKeyWatcher.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <ostream>
#include <string>

namespace TLGateway {

namespace {

void SetKey(const CommandContext& context, const std::string& appKey)
{
    CheckIdentifier(appKey, "app key");
    const auto store = context.OpenStore(CommandContext::Database::MayBeMade);
    const std::string secret = context.ReadSecretLine("secret");
    AwaitWrite([&](IStore::WriteDone done) { store->SetAppKey(appKey, secret, std::move(done)); });
    AppKeyWatcher::LetOthersNotice();
    context.out << "app key " << Quoted(appKey) << " set\n";
}

} // namespace

void AddKeyCommands(CLI::App& app, CommandContext& context)
{
    CLI::App* key = app.add_subcommand("key", "App keys of the clients and their secrets");
    key->require_subcommand(1);

    const auto appKey = std::make_shared<std::string>();
    CLI::App* set = key->add_subcommand(
        "set", "Add or change an app key; reads the secret as one line from standard input");
    AddDatabaseOption(*set, context);
    set->add_option("APP_KEY", *appKey, "The app key that the client sends")->required();
    set->callback([&context, appKey] { SetKey(context, *appKey); });
}

} // namespace TLGateway
