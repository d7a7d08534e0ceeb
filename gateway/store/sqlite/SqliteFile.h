#pragma once

#include "SqliteConnection.h"
#include "store/sqlite/SqliteStore.h"

#include <memory>

namespace TLGateway {

// Opens or creates the file for writing, with the newest schema. Throws StoreError.
[[nodiscard]] std::unique_ptr<SqliteConnection> OpenForWriting(const SqliteStore::Options& options);

} // namespace TLGateway
