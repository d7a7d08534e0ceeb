#pragma once

#include "CommandContext.h"

namespace CLI {
class App;
}

namespace TLGateway {

// Adds the option --database, which every command takes.
void AddDatabaseOption(CLI::App& command, CommandContext& context);

} // namespace TLGateway
