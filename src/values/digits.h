// Fixed-width decimal digits, written and read without locale, streams or exceptions.
#pragma once

#include <cstddef>
#include <string_view>

namespace zr::digits {

/// An object, so that an algorithm that takes it sees through the call.
inline constexpr auto is_digit = [](char value) { return value >= '0' && value <= '9'; };

/// Writes the lowest `width` decimal digits of `value`, with leading zeros. Gives the end.
constexpr char* write(char* to, unsigned value, std::size_t width) {
    for (std::size_t i = width; i-- != 0; value /= 10) {
        to[i] = static_cast<char>('0' + value % 10);
    }
    return to + width;
}

/// Reads a number of exactly `width` digits that starts at `position`; -1 when there is none.
constexpr int read(std::string_view text, std::size_t position, std::size_t width) {
    if (position > text.size() || text.size() - position < width) {
        return -1;
    }
    int value = 0;
    for (const char digit : text.substr(position, width)) {
        if (!is_digit(digit)) {
            return -1;
        }
        value = value * 10 + (digit - '0');
    }
    return value;
}

}  // namespace zr::digits
