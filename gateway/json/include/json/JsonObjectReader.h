#pragma once

#include <boost/json/object.hpp>
#include <boost/json/value.hpp>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace TLGateway {

// Reads the members of one JSON object and knows where it stands, so that a wrong shape is refused (throws
// InvalidInput) with the path, the wanted and the found type: "$.param.pin: wanted string, found number".
// Holds a reference: the value must outlive the reader.
class JsonObjectReader final
{
public:
    // Throws when the value is not an object. The path of the whole document is "$".
    JsonObjectReader(const boost::json::value& value, std::string path);

    [[nodiscard]] const std::string& Path() const noexcept { return m_path; }
    [[nodiscard]] bool Has(std::string_view name) const;

    [[nodiscard]] std::string String(std::string_view name) const;
    [[nodiscard]] bool Bool(std::string_view name) const;
    // A number without a fraction that fits into 64 bits.
    [[nodiscard]] std::int64_t Integer(std::string_view name) const;
    [[nodiscard]] JsonObjectReader Object(std::string_view name) const;
    // A reader for each element, all of which must be objects.
    [[nodiscard]] std::vector<JsonObjectReader> Objects(std::string_view name) const;

    // Throws when the object has any other member.
    void AllowOnly(std::initializer_list<std::string_view> names) const;

private:
    [[nodiscard]] const boost::json::value& Member(std::string_view name, const char* wanted) const;
    [[nodiscard]] std::string PathOf(std::string_view name) const;

    const boost::json::object* m_object;
    std::string m_path;
};

} // namespace TLGateway
