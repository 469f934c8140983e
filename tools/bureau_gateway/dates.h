// Calendar dates as text: yyyy-mm-dd.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <optional>
#include <string>

namespace zr::gateway {

using Date = std::chrono::year_month_day;

inline std::string to_iso(Date date) {
    char text[24];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return text;
}

/// A date of exactly the form yyyy-mm-dd that exists; none otherwise.
inline std::optional<Date> parse_date(const std::string& text) {
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    std::sscanf(text.c_str(), "%4d-%2u-%2u", &year, &month, &day);
    const Date date{std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}};
    return date.ok() && to_iso(date) == text ? std::optional(date) : std::nullopt;
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
