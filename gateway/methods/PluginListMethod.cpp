#include "PluginListMethod.h"

#include "methods/Caller.h"
#include "records/AppJson.h"
#include "json/JsonObjectReader.h"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>

#include <utility>

namespace TLGateway {

PluginListMethod::PluginListMethod(IStore& store) : m_store(store) {}

void PluginListMethod::Execute(const MethodCallPtr& call)
{
    CheckCaller(ReadCaller(JsonObjectReader(call->Business(), "$").Object("param")), call->Token());
    boost::json::array plugins;
    for (const AppRecord& app : m_store.ListApps()) {
        plugins.push_back(ToJson(app));
    }
    boost::json::object answer;
    answer["plugins"] = std::move(plugins);
    call->Succeed(answer);
}

} // namespace TLGateway
