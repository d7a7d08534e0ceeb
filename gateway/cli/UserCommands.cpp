#include "UserCommands.h"

#include "CommandError.h"
#include "DatabaseOption.h"
#include "base/Text.h"
#include "methods/PasswordHasher.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <ostream>
#include <string>

namespace TLGateway {

namespace {

void AddUser(const CommandContext& context, const std::string& pin, const std::string& belongType)
{
    CheckIdentifier(pin, "pin");
    CheckIdentifier(belongType, "belong type");
    const auto store = context.OpenStore(CommandContext::Database::MayBeMade);
    if (store->FindUser(pin)) {
        throw CommandError("user " + Quoted(pin) +
                           " already exists; use \"user password\" to change the password");
    }
    const std::string hash = PasswordHasher().Hash(context.ReadSecretLine("password"));
    AwaitWrite([&](IStore::WriteDone done) { store->AddUser({pin, belongType, hash}, std::move(done)); });
    context.out << "user " << Quoted(pin) << " added\n";
}

void SetPassword(const CommandContext& context, const std::string& pin)
{
    const auto store = context.OpenStore(CommandContext::Database::MustExist);
    if (!store->FindUser(pin)) {
        throw CommandError("there is no user " + Quoted(pin));
    }
    const std::string hash = PasswordHasher().Hash(context.ReadSecretLine("password"));
    AwaitWrite([&](IStore::WriteDone done) { store->SetPassword(pin, hash, std::move(done)); });
    context.out << "password of user " << Quoted(pin) << " changed; its log-ins have ended\n";
}

void ListUsers(const CommandContext& context)
{
    const auto store = context.OpenStore(CommandContext::Database::MustExist);
    for (const UserRecord& user : store->ListUsers()) {
        context.out << user.pin << '\t' << user.belongType << '\n';
    }
}

} // namespace

void AddUserCommands(CLI::App& app, CommandContext& context)
{
    CLI::App* user = app.add_subcommand("user", "Users and their passwords");
    user->require_subcommand(1);

    const auto pin = std::make_shared<std::string>();
    const auto belongType = std::make_shared<std::string>();

    CLI::App* add =
        user->add_subcommand("add", "Add a user; reads the password as one line from standard input");
    AddDatabaseOption(*add, context);
    add->add_option("PIN", *pin, "The user's account name")->required();
    add->add_option("--belong-type", *belongType, "The kind of account, for example merchant")->required();
    add->callback([&context, pin, belongType] { AddUser(context, *pin, *belongType); });

    CLI::App* password = user->add_subcommand(
        "password",
        "Change a user's password, read as one line from standard input, and end the user's log-ins");
    AddDatabaseOption(*password, context);
    password->add_option("PIN", *pin, "The user's account name")->required();
    password->callback([&context, pin] { SetPassword(context, *pin); });

    CLI::App* list = user->add_subcommand("list", "List the users, one per line: pin, tab, belong type");
    AddDatabaseOption(*list, context);
    list->callback([&context] { ListUsers(context); });
}

} // namespace TLGateway
