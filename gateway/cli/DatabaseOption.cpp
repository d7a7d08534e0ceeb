#include "DatabaseOption.h"

#include <CLI/CLI.hpp>

namespace TLGateway {

void AddDatabaseOption(CLI::App& command, CommandContext& context)
{
    command
        .add_option("--database", context.databaseUrl,
                    "The database, as sqlite:FILE or postgresql://USER@HOST/NAME")
        ->required();
}

} // namespace TLGateway
