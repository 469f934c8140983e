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

    /// The date `year`-`month`-`day` at midnight. The caller gives a date that exists.
    static constexpr DateTime ymd(int year, unsigned month, unsigned day) {
        return {std::chrono::year_month_day{std::chrono::year{year}, std::chrono::month{month},
                                            std::chrono::day{day}},
                std::chrono::seconds{0}};
    }

    /// The current local date and time.
    static DateTime now();

    /// The same day with no time of day.
    constexpr DateTime date_only() const { return {date, std::chrono::seconds{0}}; }

    constexpr bool has_time() const { return time_of_day.count() != 0; }

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

/// What a date-or-null property holds: nothing, a text, or a date.
using DateOrNull = std::variant<Null, std::string, DateTime>;

constexpr bool is_null(const DateOrNull& value) { return std::holds_alternative<Null>(value); }

/// The date in the value; none when it holds nothing or a text.
constexpr std::optional<DateTime> held_date(const DateOrNull& value) {
    const DateTime* date = std::get_if<DateTime>(&value);
    return date ? std::optional<DateTime>(*date) : std::nullopt;
}

}  // namespace zr
