#include "bureau_gateway/net/encoding.h"

#include <cstdint>

namespace zr::gateway {
namespace {

/// Takes the first code point off the text, which is well-formed: this program wrote it, or a
/// parser accepted it.
char32_t take_code_point(std::string_view& text) {
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
    };
    const unsigned first = byte(0);
    const std::size_t size = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    char32_t point = size == 1 ? first : first & (0x7Fu >> size);
    for (std::size_t i = 1; i < size; ++i) {
        point = point << 6 | (byte(i) & 0x3F);
    }
    text.remove_prefix(size < text.size() ? size : text.size());
    return point;
}

void append_utf16(std::string& result, char32_t unit, bool little) {
    const auto high = static_cast<char>(unit >> 8 & 0xFF);
    const auto low = static_cast<char>(unit & 0xFF);
    result += little ? low : high;
    result += little ? high : low;
}

}  // namespace

std::string encode(std::string_view utf8, std::string_view encoding) {
    const bool latin = encoding == "iso-8859-1";
    const bool little = encoding == "utf-16le";
    if (!latin && !little && encoding != "utf-16be") {
        return std::string(utf8);
    }
    std::string result;
    while (!utf8.empty()) {
        const char32_t point = take_code_point(utf8);
        if (latin) {
            result += point < 0x100 ? static_cast<char>(point) : '?';
        } else if (point < 0x10000) {
            append_utf16(result, point, little);
        } else {
            append_utf16(result, 0xD800 + ((point - 0x10000) >> 10), little);
            append_utf16(result, 0xDC00 + ((point - 0x10000) & 0x3FF), little);
        }
    }
    return result;
}

}  // namespace zr::gateway
