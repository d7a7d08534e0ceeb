#include "base/Text.h"

namespace TLGateway {

namespace {

constexpr std::size_t QuotedCodePoints = 64;
constexpr char HexDigits[] = "0123456789abcdef";

// Length of the well-formed UTF-8 sequence at the start of the text; 0 when there is none.
std::size_t SequenceLength(std::string_view text) noexcept
{
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto continues = [&](std::size_t i, unsigned low = 0x80, unsigned high = 0xBF) {
        return i < text.size() && byte(i) >= low && byte(i) <= high;
    };
    if (text.empty()) {
        return 0;
    }
    const unsigned lead = byte(0);
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return continues(1) ? 2 : 0;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        const unsigned low = lead == 0xE0 ? 0xA0 : 0x80;
        const unsigned high = lead == 0xED ? 0x9F : 0xBF;
        return continues(1, low, high) && continues(2) ? 3 : 0;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        const unsigned low = lead == 0xF0 ? 0x90 : 0x80;
        const unsigned high = lead == 0xF4 ? 0x8F : 0xBF;
        return continues(1, low, high) && continues(2) && continues(3) ? 4 : 0;
    }
    return 0;
}

void AppendEscaped(std::string& out, unsigned char byte)
{
    out += "\\x";
    out += HexDigits[byte >> 4];
    out += HexDigits[byte & 15];
}

} // namespace

bool IsValidUtf8(std::string_view text) noexcept
{
    while (!text.empty()) {
        const std::size_t length = SequenceLength(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

std::size_t CountCodePoints(std::string_view text) noexcept
{
    std::size_t count = 0;
    for (const char c : text) {
        count += (static_cast<unsigned char>(c) & 0xC0) != 0x80 ? 1 : 0;
    }
    return count;
}

std::string Quoted(std::string_view text)
{
    std::string out = "\"";
    std::size_t count = 0;
    while (!text.empty()) {
        if (count++ == QuotedCodePoints) {
            out += "...";
            break;
        }
        const std::size_t length = SequenceLength(text);
        const auto first = static_cast<unsigned char>(text.front());
        if (length == 0) {
            AppendEscaped(out, first);
            text.remove_prefix(1);
            continue;
        }
        if (first < 0x20 || first == 0x7F) {
            AppendEscaped(out, first);
        } else if (length == 2 && first == 0xC2 && static_cast<unsigned char>(text[1]) < 0xA0) {
            AppendEscaped(out, first);
            AppendEscaped(out, static_cast<unsigned char>(text[1]));
        } else {
            if (first == '"' || first == '\\') {
                out += '\\';
            }
            out += text.substr(0, length);
        }
        text.remove_prefix(length);
    }
    out += '"';
    return out;
}

std::string ToHex(std::string_view bytes)
{
    std::string out;
    out.reserve(bytes.size() * 2);
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        out += HexDigits[byte >> 4];
        out += HexDigits[byte & 15];
    }
    return out;
}

std::string ToBase64Url(std::string_view bytes)
{
    constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
    std::string out;
    unsigned bits = 0;
    unsigned held = 0;
    for (const char c : bytes) {
        bits = (bits << 8) | static_cast<unsigned char>(c);
        held += 8;
        while (held >= 6) {
            held -= 6;
            out += alphabet[(bits >> held) & 63];
        }
    }
    if (held > 0) {
        out += alphabet[(bits << (6 - held)) & 63];
    }
    return out;
}

} // namespace TLGateway
