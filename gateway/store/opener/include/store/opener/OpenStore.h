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
    bool mustExist = false;      // do not make a file, do not fill an empty database
    bool checkIntegrity = false; // look through a file before it is touched; a server looks after its own
};

// Opens the store that a database URL names. Throws std::invalid_argument for the URL, StoreError for what is
// there.
[[nodiscard]] std::unique_ptr<IStore> OpenStore(const std::string& url, const OpenStoreOptions& options,
                                                std::shared_ptr<spdlog::logger> logger);

} // namespace TLGateway
