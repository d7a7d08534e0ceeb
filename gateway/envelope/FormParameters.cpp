#include "envelope/FormParameters.h"

#include "base/Text.h"
#include "envelope/Refused.h"

#include <optional>

namespace TLGateway {

namespace {

int HexValue(char c) noexcept
{
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return -1;
}

std::optional<std::string> Decode(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '+') {
            out += ' ';
        } else if (text[i] != '%') {
            out += text[i];
        } else {
            const int high = i + 2 < text.size() ? HexValue(text[i + 1]) : -1;
            const int low = i + 2 < text.size() ? HexValue(text[i + 2]) : -1;
            if (high < 0 || low < 0) {
                return std::nullopt;
            }
            out += static_cast<char>(high * 16 + low);
            i += 2;
        }
    }
    return out;
}

[[noreturn]] void Refuse(std::string_view name, const char* problem)
{
    throw Refused(ErrorCode::BadParameter, "parameter " + Quoted(name) + " " + problem);
}

} // namespace

FormParameters ParseForm(std::string_view body)
{
    FormParameters parameters;
    while (!body.empty()) {
        const std::size_t end = body.find('&');
        const std::string_view pair = body.substr(0, end);
        body.remove_prefix(end == std::string_view::npos ? body.size() : end + 1);
        if (pair.empty()) {
            continue;
        }
        const std::size_t equals = pair.find('=');
        const std::string_view rawName = pair.substr(0, equals);
        const std::string_view rawValue =
            equals == std::string_view::npos ? std::string_view() : pair.substr(equals + 1);

        std::optional<std::string> name = Decode(rawName);
        if (!name) {
            Refuse(rawName, "has a broken percent escape in its name");
        }
        if (!IsValidUtf8(*name)) {
            Refuse(*name, "has a name that is not valid UTF-8");
        }
        std::optional<std::string> value = Decode(rawValue);
        if (!value) {
            Refuse(*name, "has a broken percent escape");
        }
        if (!IsValidUtf8(*value)) {
            Refuse(*name, "is not valid UTF-8");
        }
        const auto [position, isNew] = parameters.try_emplace(std::move(*name), std::move(*value));
        if (!isNew) {
            Refuse(position->first, "occurs twice");
        }
    }
    return parameters;
}

} // namespace TLGateway
