#pragma once

#include "CommandContext.h"

namespace CLI {
class App;
}

namespace TLGateway {

// Adds the command "demo".
void AddDemoCommand(CLI::App& app, CommandContext& context);

} // namespace TLGateway
