#include "records/ConfigurationJson.h"

#include <boost/json/array.hpp>

#include <algorithm>
#include <limits>

namespace TLGateway {

namespace {

// A number beyond int becomes the nearest int, which CheckLimits refuses later.
int ReadType(const JsonObjectReader& reader)
{
    return static_cast<int>(std::clamp<std::int64_t>(reader.Integer("type"), std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

AutoRunEntry ReadWholeEntry(const JsonObjectReader& reader)
{
    AutoRunEntry entry;
    entry.itemId = reader.String("itemId");
    entry.name = reader.String("name");
    entry.url = reader.String("url");
    entry.systemItem = reader.Bool("systemItem");
    entry.checked = reader.Bool("checked");
    entry.activeItem = reader.Bool("activeItem");
    entry.type = ReadType(reader);
    return entry;
}

// A user changes two flags of a system entry; the others are optional but must have the right type.
AutoRunEntry ReadUsersSystemEntry(const JsonObjectReader& reader)
{
    AutoRunEntry entry;
    entry.itemId = reader.String("itemId");
    entry.name = reader.Has("name") ? reader.String("name") : std::string();
    entry.url = reader.Has("url") ? reader.String("url") : std::string();
    entry.systemItem = !reader.Has("systemItem") || reader.Bool("systemItem");
    entry.checked = reader.Bool("checked");
    entry.activeItem = reader.Bool("activeItem");
    entry.type = reader.Has("type") ? ReadType(reader) : 0;
    return entry;
}

std::vector<AutoRunEntry> ReadEntries(const JsonObjectReader& lists, std::string_view name,
                                      AutoRunEntry (*read)(const JsonObjectReader&))
{
    std::vector<AutoRunEntry> entries;
    for (const JsonObjectReader& reader : lists.Objects(name)) {
        reader.AllowOnly({"activeItem", "checked", "itemId", "name", "systemItem", "type", "url"});
        entries.push_back(read(reader));
    }
    return entries;
}

boost::json::array EntriesToJson(const std::vector<AutoRunEntry>& entries)
{
    boost::json::array array;
    array.reserve(entries.size());
    for (const AutoRunEntry& entry : entries) {
        boost::json::object object;
        object["activeItem"] = entry.activeItem;
        object["checked"] = entry.checked;
        object["itemId"] = entry.itemId;
        object["name"] = entry.name;
        object["systemItem"] = entry.systemItem;
        object["type"] = entry.type;
        object["url"] = entry.url;
        array.push_back(std::move(object));
    }
    return array;
}

} // namespace

AutoRunConfiguration ReadConfiguration(const JsonObjectReader& lists, ConfigurationSource source)
{
    AutoRunConfiguration configuration;
    configuration.systemItems =
        ReadEntries(lists, "systemItems",
                    source == ConfigurationSource::Operator ? &ReadWholeEntry : &ReadUsersSystemEntry);
    configuration.customItems = ReadEntries(lists, "customItems", &ReadWholeEntry);
    configuration.pluginItems = ReadEntries(lists, "pluginItems", &ReadWholeEntry);
    return configuration;
}

boost::json::object ToJson(const AutoRunConfiguration& configuration)
{
    boost::json::object object;
    object["customItems"] = EntriesToJson(configuration.customItems);
    object["pluginItems"] = EntriesToJson(configuration.pluginItems);
    object["systemItems"] = EntriesToJson(configuration.systemItems);
    return object;
}

} // namespace TLGateway
