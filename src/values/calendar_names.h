// English names of months and days; the first three letters are the abbreviation.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace zr::calendar_names {

inline constexpr std::array<std::string_view, 12> kMonths = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

/// From Sunday, as std::chrono::weekday counts.
inline constexpr std::array<std::string_view, 7> kWeekdays = {
    "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

inline constexpr std::size_t kAbbreviation = 3;

}  // namespace zr::calendar_names
