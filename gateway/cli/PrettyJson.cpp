#include "PrettyJson.h"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>

namespace TLGateway {

namespace {

void Append(std::string& out, const boost::json::value& value, std::size_t depth);

// `items` is an array or an object; `appendItem` writes one of its elements or members.
template <typename Items, typename AppendItem>
void AppendItems(std::string& out, const Items& items, char open, char close, std::size_t depth,
                 AppendItem appendItem)
{
    out += open;
    bool isFirst = true;
    for (const auto& item : items) {
        out += isFirst ? "\n" : ",\n";
        out.append((depth + 1) * 2, ' ');
        appendItem(item);
        isFirst = false;
    }
    if (!isFirst) {
        out += '\n';
        out.append(depth * 2, ' ');
    }
    out += close;
}

void Append(std::string& out, const boost::json::value& value, std::size_t depth)
{
    if (const auto* array = value.if_array()) {
        AppendItems(out, *array, '[', ']', depth,
                    [&](const boost::json::value& element) { Append(out, element, depth + 1); });
    } else if (const auto* object = value.if_object()) {
        AppendItems(out, *object, '{', '}', depth, [&](const boost::json::key_value_pair& member) {
            out += boost::json::serialize(member.key());
            out += ": ";
            Append(out, member.value(), depth + 1);
        });
    } else {
        out += boost::json::serialize(value);
    }
}

} // namespace

std::string PrettyJson(const boost::json::value& value)
{
    std::string out;
    Append(out, value, 0);
    out += '\n';
    return out;
}

} // namespace TLGateway
