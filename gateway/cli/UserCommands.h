#pragma once

#include "CommandContext.h"

namespace CLI {
class App;
}

namespace TLGateway {

// Adds the commands "user add", "user password" and "user list".
void AddUserCommands(CLI::App& app, CommandContext& context);

} // namespace TLGateway
