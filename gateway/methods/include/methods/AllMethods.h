#pragma once

#include "base/Clock.h"
#include "base/WorkerPool.h"
#include "methods/MethodRegistry.h"
#include "methods/PasswordHasher.h"
#include "store/IStore.h"

namespace TLGateway {

// Adds every method of the gateway. Log-ins hash their passwords on `hashers`; access tokens last
// `tokenLifetime` [s]. All references must outlive the registry.
void AddAllMethods(MethodRegistry& methods, IStore& store, const PasswordHasher& hasher, WorkerPool& hashers,
                   UnixTime tokenLifetime);

} // namespace TLGateway
