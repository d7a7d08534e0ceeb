#pragma once

#include "store/IStore.h"

#include <memory>
#include <string>

namespace spdlog {
class logger;
}

namespace TLGateway {

struct OpenStoreOptions
{
    bool mustExist = false;      // do not create a file, do not fill an empty database
    bool checkIntegrity = false; // check a whole file before touching it; a server checks its own
};

// Opens the store that a database URL names. Throws std::invalid_argument for the URL, StoreError when the
// store cannot be opened.
[[nodiscard]] std::unique_ptr<IStore> OpenStore(const std::string& url, const OpenStoreOptions& options,
                                                std::shared_ptr<spdlog::logger> logger);

} // namespace TLGateway
