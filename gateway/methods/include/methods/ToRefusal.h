#pragma once

#include "envelope/Refusal.h"
#include "store/StoreError.h"
#include "store/WriteFailure.h"
#include "json/InvalidInput.h"

namespace TLGateway {

// The one place where errors of the rooms below become codes of the protocol.
[[nodiscard]] Refusal ToRefusal(const InvalidInput& invalid);
[[nodiscard]] Refusal ToRefusal(const WriteFailure& failure);
// The text of the error is for the log only.
[[nodiscard]] Refusal ToRefusal(const StoreError& error);

} // namespace TLGateway
