// Calendar dates with a time of day, and the value that may hold one.
#pragma once

#include <chrono>
#include <compare>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace zr {

/// A calendar date with a time of day (whole seconds since midnight, 0 when only a date is meant).
/// Local wall-clock time: it carries no zone.
struct DateTime {
    std::chrono::year_month_day date{};
    std::chrono::seconds time_of_day{0};

    /// The date `year`-`month`-`day` at midnight, unchecked: is_date() tells whether it is one.
    static constexpr DateTime ymd(int year, unsigned month, unsigned day) {
        return {std::chrono::year_month_day{std::chrono::year{year}, std::chrono::month{month},
                                            std::chrono::day{day}},
                std::chrono::seconds{0}};
    }

    /// The date with a time of day; none for what is no day of the calendar, no time within a day,
    /// or not of the years 100 to 9999.
    static constexpr std::optional<DateTime> checked(int year, unsigned month, unsigned day,
                                                     int hour = 0, int minute = 0, int second = 0) {
        const bool is_time =
            hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
        DateTime made = ymd(year, month, day);
        made.time_of_day =
            std::chrono::hours(hour) + std::chrono::minutes(minute) + std::chrono::seconds(second);
        return is_time && made.is_date() ? std::optional<DateTime>(made) : std::nullopt;
    }

    /// The current local date and time.
    static DateTime now();

    /// The same day with no time of day.
    constexpr DateTime date_only() const { return {date, std::chrono::seconds{0}}; }

    constexpr bool has_time() const { return time_of_day.count() != 0; }

    /// Whether this is a day of the calendar, from year 100 to 9999, with a time within the day.
    /// What is none (never set, 30 February) counts as null wherever a date is taken.
    constexpr bool is_date() const {
        constexpr std::chrono::year kFirst{100};
        constexpr std::chrono::year kLast{9999};
        return date.ok() && date.year() >= kFirst && date.year() <= kLast &&
               time_of_day >= std::chrono::seconds{0} && time_of_day < std::chrono::days{1};
    }

    /// The same day and month `years` calendar years earlier; 29 February falls back to the 28th in
    /// a year without it. The time of day stays.
    constexpr DateTime years_before(int years) const {
        std::chrono::year_month_day earlier{date.year() - std::chrono::years{years}, date.month(),
                                            date.day()};
        if (!earlier.ok()) {
            earlier = earlier.year() / earlier.month() / std::chrono::last;
        }
        return {earlier, time_of_day};
    }

    constexpr auto operator<=>(const DateTime&) const = default;

    /// "yyyy-mm-dd", or "yyyy-mm-ddThh:nn:ss" when there is a time of day.
    std::string to_iso() const;
};

/// The null of automation hosts: no value at all, which is not the same as empty text.
struct Null {
    constexpr bool operator==(const Null&) const = default;
};

/// What a date-or-null property holds: nothing, a text, or a date. A date that is none is nothing.
using DateOrNull = std::variant<Null, std::string, DateTime>;

/// The date in the value; none when it holds nothing, a text, or a date that is none.
constexpr std::optional<DateTime> held_date(const DateOrNull& value) {
    const DateTime* date = std::get_if<DateTime>(&value);
    return date != nullptr && date->is_date() ? std::optional<DateTime>(*date) : std::nullopt;
}

/// Whether the value holds neither a text nor a date.
constexpr bool is_null(const DateOrNull& value) {
    return !std::holds_alternative<std::string>(value) && !held_date(value);
}

}  // namespace zr
