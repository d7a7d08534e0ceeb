#pragma once

#include "PostgresConnection.h"

#include <vector>

namespace TLGateway {

// The scripts that lead from one version of the schema to the next; version n is what the first n scripts
// make. A script that has been released is never edited.
[[nodiscard]] const std::vector<const char*>& PostgresSchemaScripts();

enum class EmptyDatabase
{
    IsFilled,
    IsRefused,
};

// Brings the database to the newest version, each script in a transaction of its own and under a lock, so
// that gateways that start at once wait for each other. Throws PostgresError, and std::runtime_error when the
// database belongs to another program or to a newer gateway, or is empty and must not be.
void MigrateSchema(PostgresConnection& connection, const std::vector<const char*>& scripts,
                   EmptyDatabase emptyDatabase);

} // namespace TLGateway
