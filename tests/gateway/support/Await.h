#pragma once

#include "store/IStore.h"

#include <functional>
#include <optional>

namespace TLGateway {

// Starts a write and waits for its answer. Throws std::runtime_error after 120 s without one.
std::optional<WriteFailure> Await(const std::function<void(IStore::WriteDone done)>& start);

} // namespace TLGateway
