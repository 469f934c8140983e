// Letters, case and white space of ASCII; the protocol's own names need no more.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace zr::gateway {

constexpr char to_lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }
constexpr char to_upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

inline std::string to_lower(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](char c) { return to_lower(c); });
    return result;
}

inline std::string to_upper(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](char c) { return to_upper(c); });
    return result;
}

/// Without white space at both ends.
constexpr std::string_view trim(std::string_view text) {
    constexpr std::string_view kBlank = " \t\r\n";
    const auto first = text.find_first_not_of(kBlank);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlank) - first + 1);
}

/// Characters (code points) in UTF-8 text, the unit of the bureau's field widths.
constexpr std::size_t length(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

}  // namespace zr::gateway
