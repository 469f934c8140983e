// Letter case by utf8proc, which is named here only.
#include <utf8proc.h>

#include <cstdint>

#include "platform/unicode.h"
#include "platform/utf8.h"

namespace zr::text {
namespace {

constexpr char upper_ascii(char value) {
    return value >= 'a' && value <= 'z' ? static_cast<char>(value - 'a' + 'A') : value;
}

constexpr char lower_ascii(char value) {
    return value >= 'A' && value <= 'Z' ? static_cast<char>(value - 'A' + 'a') : value;
}

// Simple mapping leaves the sharp s as it is; the library knows a capital one.
char32_t upper_code(char32_t code) {
    constexpr char32_t kSharpS = 0xDF;
    return code == kSharpS ? code : static_cast<char32_t>(utf8proc_toupper(static_cast<int>(code)));
}

char32_t lower_code(char32_t code) {
    return static_cast<char32_t>(utf8proc_tolower(static_cast<int>(code)));
}

template <typename MapAscii, typename MapCode>
std::string map_case(std::string_view value, MapAscii map_ascii, MapCode map_code) {
    std::string result;
    result.reserve(value.size());
    for (std::size_t position = 0; position < value.size();) {
        if (utf8::is_ascii(value[position])) {
            result += map_ascii(value[position++]);
            continue;
        }
        const utf8::Decoded decoded = utf8::decode(value, position);
        if (decoded.valid) {
            append_code_point(result, map_code(decoded.code));
        } else {
            result += value[position];
        }
        position += decoded.size;
    }
    return result;
}

// The upper-cased code point at `position`, which moves past it. Invalid bytes map to themselves.
char32_t next_upper(std::string_view value, std::size_t& position) {
    if (utf8::is_ascii(value[position])) {
        return static_cast<char32_t>(upper_ascii(value[position++]));
    }
    const utf8::Decoded decoded = utf8::decode(value, position);
    position += decoded.size;
    return decoded.valid ? upper_code(decoded.code) : decoded.code;
}

}  // namespace

std::string upper(std::string_view value) { return map_case(value, upper_ascii, upper_code); }

std::string lower(std::string_view value) { return map_case(value, lower_ascii, lower_code); }

bool equal_ignoring_case(std::string_view left, std::string_view right) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < left.size() && j < right.size()) {
        if (utf8::is_ascii(left[i]) && utf8::is_ascii(right[j])) {
            if (upper_ascii(left[i++]) != upper_ascii(right[j++])) {
                return false;
            }
        } else if (next_upper(left, i) != next_upper(right, j)) {
            return false;
        }
    }
    return i == left.size() && j == right.size();
}

std::size_t hash_ignoring_case(std::string_view value) {
    std::uint64_t hash = 0xCBF29CE484222325U;  // FNV-1a, a code point at a time
    for (std::size_t position = 0; position < value.size();) {
        hash = (hash ^ next_upper(value, position)) * 0x100000001B3U;
    }
    return static_cast<std::size_t>(hash ^ hash >> 32U);
}

}  // namespace zr::text
