#pragma once

#include "CommandContext.h"

namespace CLI {
class App;
}

namespace TLGateway {

// Adds the commands "config show", "config history" and "config import".
void AddConfigCommands(CLI::App& app, CommandContext& context);

} // namespace TLGateway
