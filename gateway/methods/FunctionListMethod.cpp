#include "FunctionListMethod.h"

#include "methods/Caller.h"
#include "json/JsonObjectReader.h"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>

#include <utility>

namespace TLGateway {

FunctionListMethod::FunctionListMethod(IStore& store) : m_store(store) {}

void FunctionListMethod::Execute(const MethodCallPtr& call)
{
    CheckCaller(ReadCaller(JsonObjectReader(call->Business(), "$").Object("param")), call->Token());
    boost::json::array functions;
    for (const FunctionSwitch& functionSwitch : m_store.ListSwitches()) {
        boost::json::object object;
        object["display"] = functionSwitch.display;
        object["number"] = functionSwitch.number;
        object["valid"] = functionSwitch.valid;
        functions.push_back(std::move(object));
    }
    boost::json::object answer;
    answer["functions"] = std::move(functions);
    call->Succeed(answer);
}

} // namespace TLGateway
