#pragma once

#include "CommandContext.h"

namespace CLI {
class App;
}

namespace TLGateway {

// Adds the command "key set".
void AddKeyCommands(CLI::App& app, CommandContext& context);

} // namespace TLGateway
