#pragma once

#include "SqliteConnection.h"

#include <vector>

namespace TLGateway {

// The scripts that lead from one version of the schema to the next; version n is what the first n scripts
// make. A script that has been released is never edited.
[[nodiscard]] const std::vector<const char*>& SchemaScripts();

// Brings the database to the newest version, each script in a transaction of its own. Throws SqliteError, and
// std::runtime_error when the file belongs to another program or to a newer gateway.
void MigrateSchema(SqliteConnection& connection, const std::vector<const char*>& scripts);

} // namespace TLGateway
