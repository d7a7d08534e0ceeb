#pragma once

#include "CommandContext.h"

namespace CLI {
class App;
}

namespace TLGateway {

// Adds the commands "app import" and "switch set".
void AddCatalogueCommands(CLI::App& app, CommandContext& context);

} // namespace TLGateway
