#pragma once

#include "CommandContext.h"

namespace CLI {
class App;
}

namespace TLGateway {

// Adds the command "serve".
void AddServeCommand(CLI::App& app, CommandContext& context);

} // namespace TLGateway
