#include "LogoutMethod.h"

#include "envelope/JsonObjectReader.h"
#include "methods/Caller.h"

namespace TLGateway {

LogoutMethod::LogoutMethod(IStore& store) : m_store(store) {}

void LogoutMethod::Execute(const MethodCallPtr& call)
{
    CheckCaller(ReadCaller(JsonObjectReader(call->Business(), "$").Object("param")), call->Token());
    m_store.RemoveToken(call->Token().hash,
                        [call](const std::optional<Refusal>& refusal) { call->Finish(refusal, true); });
}

} // namespace TLGateway
