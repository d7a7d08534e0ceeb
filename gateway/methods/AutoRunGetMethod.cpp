#include "AutoRunGetMethod.h"

#include "methods/Caller.h"
#include "records/ConfigurationJson.h"
#include "json/JsonObjectReader.h"

namespace TLGateway {

AutoRunGetMethod::AutoRunGetMethod(IStore& store) : m_store(store) {}

void AutoRunGetMethod::Execute(const MethodCallPtr& call)
{
    CheckCaller(ReadCaller(JsonObjectReader(call->Business(), "$").Object("param")), call->Token());
    call->Succeed(ToJson(m_store.FindConfiguration(call->Token().pin).configuration));
}

} // namespace TLGateway
