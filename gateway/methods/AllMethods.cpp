#include "methods/AllMethods.h"

#include "AutoRunGetMethod.h"
#include "AutoRunSetMethod.h"
#include "FunctionListMethod.h"
#include "LogoutMethod.h"
#include "PluginListMethod.h"
#include "methods/LoginMethod.h"

#include <memory>

namespace TLGateway {

void AddAllMethods(MethodRegistry& methods, IStore& store, const PasswordHasher& hasher, WorkerPool& hashers,
                   UnixTime tokenLifetime)
{
    methods.Add(std::make_unique<LoginMethod>(store, hasher, hashers, tokenLifetime));
    methods.Add(std::make_unique<LogoutMethod>(store));
    methods.Add(std::make_unique<AutoRunGetMethod>(store));
    methods.Add(std::make_unique<AutoRunSetMethod>(store));
    methods.Add(std::make_unique<PluginListMethod>(store));
    methods.Add(std::make_unique<FunctionListMethod>(store));
}

} // namespace TLGateway
