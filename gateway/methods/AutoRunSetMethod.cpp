#include "AutoRunSetMethod.h"

#include "methods/Caller.h"
#include "records/ConfigurationJson.h"
#include "records/ConfigurationLimits.h"
#include "json/JsonObjectReader.h"

#include <utility>

namespace TLGateway {

AutoRunSetMethod::AutoRunSetMethod(IStore& store) : m_store(store) {}

void AutoRunSetMethod::Execute(const MethodCallPtr& call)
{
    const JsonObjectReader business(call->Business(), "$");
    const Caller caller = ReadCaller(business.Object("baseInfo"));
    const JsonObjectReader lists = business.Object("workstationSetResult");
    lists.AllowOnly({"customItems", "pluginItems", "systemItems"});
    AutoRunConfiguration requested = ReadConfiguration(lists, ConfigurationSource::User);
    CheckCaller(caller, call->Token());
    CheckLimits(requested, ConfigurationSource::User, lists.Path());

    m_store.EditConfiguration(
        call->Token().pin, "user",
        [requested = std::move(requested), path = lists.Path()](const AutoRunConfiguration& stored) {
            return ApplyUsersWrite(stored, requested, path);
        },
        [call](const std::optional<WriteFailure>& failure) { call->Finish(failure, true); });
}

} // namespace TLGateway
