#include "json/JsonObjectReader.h"

#include "base/Text.h"
#include "json/InvalidInput.h"

#include <boost/json/array.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace TLGateway {

namespace {

const char* TypeName(const boost::json::value& value) noexcept
{
    switch (value.kind()) {
    case boost::json::kind::null:
        return "null";
    case boost::json::kind::bool_:
        return "bool";
    case boost::json::kind::int64:
    case boost::json::kind::uint64:
    case boost::json::kind::double_:
        return "number";
    case boost::json::kind::string:
        return "string";
    case boost::json::kind::array:
        return "array";
    case boost::json::kind::object:
        return "object";
    }
    return "nothing";
}

[[noreturn]] void RefuseType(const std::string& path, const char* wanted, const char* found)
{
    throw InvalidInput(InvalidInput::Rule::Shape, path + ": wanted " + wanted + ", found " + found);
}

std::optional<std::int64_t> ToInteger(const boost::json::value& value) noexcept
{
    if (const auto* number = value.if_int64()) {
        return *number;
    }
    // Beyond 2^53 a double no longer names one integer.
    constexpr double exact = 9007199254740992.0;
    if (const auto* number = value.if_double();
        number != nullptr && std::trunc(*number) == *number && std::abs(*number) <= exact) {
        return static_cast<std::int64_t>(*number);
    }
    return std::nullopt;
}

} // namespace

JsonObjectReader::JsonObjectReader(const boost::json::value& value, std::string path)
    : m_object(value.if_object()), m_path(std::move(path))
{
    if (m_object == nullptr) {
        RefuseType(m_path, "object", TypeName(value));
    }
}

bool JsonObjectReader::Has(std::string_view name) const
{
    return m_object->contains(name);
}

std::string JsonObjectReader::String(std::string_view name) const
{
    const boost::json::value& value = Member(name, "string");
    const auto* text = value.if_string();
    if (text == nullptr) {
        RefuseType(PathOf(name), "string", TypeName(value));
    }
    return std::string(text->data(), text->size());
}

bool JsonObjectReader::Bool(std::string_view name) const
{
    const boost::json::value& value = Member(name, "bool");
    const bool* flag = value.if_bool();
    if (flag == nullptr) {
        RefuseType(PathOf(name), "bool", TypeName(value));
    }
    return *flag;
}

std::int64_t JsonObjectReader::Integer(std::string_view name) const
{
    const boost::json::value& value = Member(name, "integer");
    const auto number = ToInteger(value);
    if (!number) {
        RefuseType(PathOf(name), "integer",
                   value.is_number() ? "number that is no integer" : TypeName(value));
    }
    return *number;
}

JsonObjectReader JsonObjectReader::Object(std::string_view name) const
{
    return JsonObjectReader(Member(name, "object"), PathOf(name));
}

std::vector<JsonObjectReader> JsonObjectReader::Objects(std::string_view name) const
{
    const boost::json::value& value = Member(name, "array");
    const auto* array = value.if_array();
    if (array == nullptr) {
        RefuseType(PathOf(name), "array", TypeName(value));
    }
    std::vector<JsonObjectReader> readers;
    readers.reserve(array->size());
    for (const boost::json::value& element : *array) {
        readers.emplace_back(element, PathOf(name) + "[" + std::to_string(readers.size()) + "]");
    }
    return readers;
}

void JsonObjectReader::AllowOnly(std::initializer_list<std::string_view> names) const
{
    for (const auto& member : *m_object) {
        const std::string_view name(member.key().data(), member.key().size());
        if (std::find(names.begin(), names.end(), name) == names.end()) {
            throw InvalidInput(InvalidInput::Rule::Shape, m_path + ": wanted no member " + Quoted(name) +
                                                              ", found " + TypeName(member.value()));
        }
    }
}

const boost::json::value& JsonObjectReader::Member(std::string_view name, const char* wanted) const
{
    const boost::json::value* value = m_object->if_contains(name);
    if (value == nullptr) {
        RefuseType(PathOf(name), wanted, "nothing");
    }
    return *value;
}

std::string JsonObjectReader::PathOf(std::string_view name) const
{
    std::string path = m_path;
    path += '.';
    path += name;
    return path;
}

} // namespace TLGateway
