// Text to dates and times of day.
#include <algorithm>
#include <array>

#include "values/calendar_names.h"
#include "values/convert.h"
#include "values/digits.h"
#include "values/text.h"

namespace zr::convert {
namespace {

using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;

constexpr std::size_t kIsoDateSize = 10;
// The first year that the hosts' own date type can hold.
constexpr int kFirstYear = 100;

std::optional<DateTime> checked_date(int year, int month, int day) {
    if (year < kFirstYear || month < 1 || day < 1) {
        return std::nullopt;
    }
    const DateTime result =
        DateTime::ymd(year, static_cast<unsigned>(month), static_cast<unsigned>(day));
    return result.date.ok() ? std::optional<DateTime>(result) : std::nullopt;
}

std::optional<DateTime> read_iso_date(std::string_view text) {
    if (text.size() != kIsoDateSize || text[4] != '-' || text[7] != '-') {
        return std::nullopt;
    }
    return checked_date(digits::read(text, 0, 4), digits::read(text, 5, 2),
                        digits::read(text, 8, 2));
}

bool skip(std::string_view& text, char expected) {
    if (text.empty() || text.front() != expected) {
        return false;
    }
    text.remove_prefix(1);
    return true;
}

// Takes a number of `width` digits that is below `limit`; -1 when there is none.
int take_number(std::string_view& text, std::size_t width, int limit) {
    const int value = digits::read(text, 0, width);
    if (value < 0 || value >= limit) {
        return -1;
    }
    text.remove_prefix(width);
    return value;
}

std::size_t count_digits(std::string_view text) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), digits::is_digit) -
                                    text.begin());
}

// Takes "nn[:ss]" after the hour's colon.
std::optional<seconds> take_minutes(std::string_view& text, int hour) {
    const int minute = take_number(text, 2, 60);
    int second = 0;
    if (hour < 0 || minute < 0) {
        return std::nullopt;
    }
    if (skip(text, ':') && (second = take_number(text, 2, 60)) < 0) {
        return std::nullopt;
    }
    return hours{hour} + minutes{minute} + seconds{second};
}

std::optional<seconds> take_time(std::string_view& text) {
    const int hour = take_number(text, 2, 24);
    return skip(text, ':') ? take_minutes(text, hour) : std::nullopt;
}

// Takes a fraction of a second where there is one; false when it has no digits.
bool take_fraction(std::string_view& text) {
    if (!skip(text, '.')) {
        return true;
    }
    const std::size_t count = count_digits(text);
    text.remove_prefix(count);
    return count != 0;
}

// True for nothing, "Z", or an offset ("+10", "+1000", "+10:00").
bool is_zone(std::string_view text) {
    if (text.empty() || text == "Z") {
        return true;
    }
    if (!skip(text, '+') && !skip(text, '-')) {
        return false;
    }
    if (take_number(text, 2, 24) < 0) {
        return false;
    }
    if (text.empty()) {
        return true;
    }
    skip(text, ':');
    return take_number(text, 2, 60) >= 0 && text.empty();
}

/// One part of a date as people write it: a number, or a word.
std::string_view take_part(std::string_view& text) {
    const auto separates = [](char c) { return c == '/' || c == '-' || c == '.' || c == ' '; };
    const auto end = std::find_if(text.begin(), text.end(), separates);
    const std::string_view part = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(part.size());
    return part;
}

int read_day(std::string_view part) {
    return part.size() <= 2 && !part.empty() ? digits::read(part, 0, part.size()) : -1;
}

int read_month(std::string_view part) {
    if (!part.empty() && digits::is_digit(part.front())) {
        return read_day(part);
    }
    if (part.size() < calendar_names::kAbbreviation) {
        return -1;
    }
    const auto& months = calendar_names::kMonths;
    const auto found = std::find_if(months.begin(), months.end(), [&](auto name) {
        return text::equal_ignoring_case(name.substr(0, part.size()), part);
    });
    return found == months.end() ? -1 : static_cast<int>(found - months.begin()) + 1;
}

int read_year(std::string_view part) {
    constexpr int kLastYearOf2000s = 29;
    if (part.size() == 4) {
        return digits::read(part, 0, 4);
    }
    const int year = part.size() == 2 ? digits::read(part, 0, 2) : -1;
    return year < 0 ? -1 : year + (year <= kLastYearOf2000s ? 2000 : 1900);
}

// "h:nn[:ss]", on the 24-hour clock or with "am" or "pm" after it.
std::optional<seconds> read_host_time(std::string_view text) {
    const int hour = take_number(text, std::clamp<std::size_t>(count_digits(text), 1, 2), 24);
    const auto time = skip(text, ':') ? take_minutes(text, hour) : std::nullopt;
    skip(text, ' ');
    if (!time || text.empty()) {
        return time;
    }
    const bool afternoon = text::equal_ignoring_case(text, "pm");
    if ((!afternoon && !text::equal_ignoring_case(text, "am")) || hour < 1 || hour > 12) {
        return std::nullopt;
    }
    return *time - hours{hour} + hours{hour % 12 + (afternoon ? 12 : 0)};
}

}  // namespace

std::optional<DateTime> to_date(std::string_view text) { return read_iso_date(text::trim(text)); }

std::optional<DateTime> to_date_time(std::string_view text) {
    text = text::trim(text);
    auto result = read_iso_date(text.substr(0, kIsoDateSize));
    if (!result) {
        return std::nullopt;
    }
    text.remove_prefix(kIsoDateSize);
    if (skip(text, 'T') || skip(text, ' ')) {
        const auto time = take_time(text);
        if (!time || !take_fraction(text)) {
            return std::nullopt;
        }
        result->time_of_day = *time;
    }
    return is_zone(text) ? result : std::nullopt;
}

std::optional<seconds> to_time(std::string_view text) {
    text = text::trim(text);
    const auto result = take_time(text);
    return text.empty() ? result : std::nullopt;
}

std::optional<DateTime> to_host_date(std::string_view text) {
    text = text::trim(text);
    if (const auto iso = to_date_time(text)) {
        return iso;
    }
    std::array<std::string_view, 3> parts;
    parts[0] = take_part(text);
    const char separator = text.empty() ? '\0' : text.front();
    for (std::size_t i = 1; i < parts.size(); ++i) {
        if (!skip(text, separator)) {
            return std::nullopt;
        }
        parts[i] = take_part(text);
    }
    if (parts[0].size() == 4) {
        std::swap(parts[0], parts[2]);  // the year first
    }
    auto result = checked_date(read_year(parts[2]), read_month(parts[1]), read_day(parts[0]));
    if (result && !text.empty()) {
        const auto time = skip(text, ' ') ? read_host_time(text) : std::nullopt;
        if (!time) {
            return std::nullopt;
        }
        result->time_of_day = *time;
    }
    return result;
}

std::optional<DateTime> read_date(const DateOrNull& value) {
    const std::string* text = std::get_if<std::string>(&value);
    const auto read = text != nullptr ? to_host_date(*text) : std::nullopt;
    return held_date(read ? DateOrNull(*read) : value);
}

}  // namespace zr::convert
