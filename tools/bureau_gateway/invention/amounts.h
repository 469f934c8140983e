// Numbers with two decimals, and amounts of money.
#pragma once

#include <cstdio>
#include <string>

namespace zr::gateway {

/// A number with two decimals, from its hundredths, none of them below 0.
inline std::string hundredths(long value) {
    char text[32];
    std::snprintf(text, sizeof text, "%ld.%02ld", value / 100, value % 100);
    return text;
}

}  // namespace zr::gateway
