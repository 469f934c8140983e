// What hosts in C++ of the C library's header need: values of each kind, and calls by name.
#pragma once

#include <cstdint>
#include <string_view>

#include "zrcreditbureau5.h"

namespace zr::test {

inline zr_value text(std::string_view value) {
    zr_value made{};
    made.type = ZR_TEXT;
    made.as.text = {value.data(), value.size()};
    return made;
}

inline zr_value object(zr_handle value) {
    zr_value made{};
    made.type = ZR_OBJECT;
    made.as.object = value;
    return made;
}

inline zr_value date(int year, int month, int day) {
    zr_value made{};
    made.type = ZR_DATE;
    made.as.date = {static_cast<std::int16_t>(year),
                    static_cast<std::uint8_t>(month),
                    static_cast<std::uint8_t>(day),
                    0,
                    0,
                    0};
    return made;
}

}  // namespace zr::test
