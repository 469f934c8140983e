// Calendar dates as text: yyyy-mm-dd.
#pragma once

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace zr::gateway {

using Date = std::chrono::year_month_day;

inline std::string to_iso(Date date) {
    char text[24];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return text;
}

/// "" for no date.
inline std::string to_iso(std::optional<Date> date) { return date ? to_iso(*date) : std::string(); }

/// A date of exactly the form yyyy-mm-dd that exists; none otherwise.
inline std::optional<Date> parse_date(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') {
        return std::nullopt;
    }
    const auto number = [&](std::size_t at, std::size_t digits) {
        int value = -1;
        const char* first = text.data() + at;
        const auto [end, error] = std::from_chars(first, first + digits, value);
        return error == std::errc{} && end == first + digits ? value : -1;
    };
    const int month = number(5, 2);
    const int day = number(8, 2);
    if (number(0, 4) < 0 || month < 0 || day < 0) {
        return std::nullopt;
    }
    const Date date{std::chrono::year{number(0, 4)},
                    std::chrono::month{static_cast<unsigned>(month)},
                    std::chrono::day{static_cast<unsigned>(day)}};
    return date.ok() ? std::optional(date) : std::nullopt;
}

inline Date current_date() {
    return std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
}

/// Whole months between two dates; 0 when `until` is the earlier one.
inline int whole_months(Date from, Date until) {
    const auto months = (static_cast<int>(until.year()) - static_cast<int>(from.year())) * 12 +
                        static_cast<int>(static_cast<unsigned>(until.month())) -
                        static_cast<int>(static_cast<unsigned>(from.month()));
    return std::max(0, months - (until.day() < from.day() ? 1 : 0));
}

inline Date days_before(Date date, int days) {
    return std::chrono::sys_days(date) - std::chrono::days(days);
}

}  // namespace zr::gateway
