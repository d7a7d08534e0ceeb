#include "records/AppJson.h"

#include "base/Text.h"
#include "records/ConfigurationLimits.h"
#include "json/InvalidInput.h"
#include "json/JsonObjectReader.h"

#include <boost/json/array.hpp>

#include <set>
#include <string>

namespace TLGateway {

namespace {

void CheckLength(const std::string& text, std::size_t least, std::size_t most, const std::string& path)
{
    const std::size_t length = CountCodePoints(text);
    if (length < least || length > most) {
        throw InvalidInput(InvalidInput::Rule::Limit,
                           path + ": " + std::to_string(length) + " characters are not within the limit of " +
                               std::to_string(least) + " to " + std::to_string(most));
    }
}

AppRecord ReadApp(const JsonObjectReader& reader)
{
    reader.AllowOnly({"address", "availability", "iconUrl", "name", "serviceCode"});
    AppRecord app;
    app.name = reader.String("name");
    app.serviceCode = reader.String("serviceCode");
    app.iconUrl = reader.String("iconUrl");
    app.address = reader.String("address");
    const std::int64_t availability = reader.Integer("availability");
    if (availability < 0 || availability > 1) {
        throw InvalidInput(InvalidInput::Rule::Limit,
                           reader.Path() + ".availability: not within the limit of 0 to 1");
    }
    app.availability = static_cast<int>(availability);
    CheckLength(app.name, 1, MaxNameLength, reader.Path() + ".name");
    CheckLength(app.serviceCode, 1, MaxUrlLength, reader.Path() + ".serviceCode");
    CheckLength(app.iconUrl, 0, MaxUrlLength, reader.Path() + ".iconUrl");
    CheckLength(app.address, 1, MaxUrlLength, reader.Path() + ".address");
    return app;
}

} // namespace

std::vector<AppRecord> ReadApps(const boost::json::value& catalogue)
{
    const boost::json::array* array = catalogue.if_array();
    if (array == nullptr) {
        throw InvalidInput(InvalidInput::Rule::Shape, "$: wanted array of apps, found something else");
    }
    std::vector<AppRecord> apps;
    std::set<std::string> codes;
    for (const boost::json::value& element : *array) {
        const std::string path = "$[" + std::to_string(apps.size()) + "]";
        apps.push_back(ReadApp(JsonObjectReader(element, path)));
        if (!codes.insert(apps.back().serviceCode).second) {
            throw InvalidInput(InvalidInput::Rule::Limit,
                               path + ".serviceCode: " + Quoted(apps.back().serviceCode) +
                                   " occurs twice; it must be unique in the catalogue");
        }
    }
    return apps;
}

boost::json::object ToJson(const AppRecord& app)
{
    boost::json::object object;
    object["address"] = app.address;
    object["availability"] = app.availability;
    object["iconUrl"] = app.iconUrl;
    object["name"] = app.name;
    object["serviceCode"] = app.serviceCode;
    return object;
}

} // namespace TLGateway
