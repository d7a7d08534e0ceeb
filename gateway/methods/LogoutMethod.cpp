#include "LogoutMethod.h"

#include "methods/Caller.h"
#include "json/JsonObjectReader.h"

namespace TLGateway {

LogoutMethod::LogoutMethod(IStore& store) : m_store(store) {}

void LogoutMethod::Execute(const MethodCallPtr& call)
{
    CheckCaller(ReadCaller(JsonObjectReader(call->Business(), "$").Object("param")), call->Token());
    m_store.RemoveToken(call->Token().hash,
                        [call](const std::optional<WriteFailure>& failure) { call->Finish(failure, true); });
}

} // namespace TLGateway
