#pragma once

#include "store/IStore.h"
#include "store/rows/IEngine.h"

#include <memory>
#include <optional>
#include <string>

namespace spdlog {
class logger;
}

namespace TLGateway {

// A write on its way through an engine.
struct WriteJob
{
    std::string what;
    std::string pin;
    IEngine::Work write;
    IStore::WriteDone done;
    std::optional<WriteFailure> failure; // what `done` will be told
};

// Runs the write. What it throws becomes the job's failure, except a DatabaseError, which is passed on.
void RunWrite(WriteJob& job, IConnection& connection, const std::string& database, spdlog::logger& logger);

} // namespace TLGateway
