#include "values/regional_format_date.h"

#include <array>
#include <chrono>

#include "values/calendar_names.h"
#include "values/digits.h"
#include "values/regional_format_reader.h"
#include "values/text.h"

namespace zr {
namespace {

using std::chrono::sys_days;
using std::chrono::weekday;

struct FieldName {
    std::string_view text;
    DateField field;
};

// Longer names before the names that begin them.
constexpr FieldName kFields[] = {
    {"dddddd", DateField::kLongDate}, {"ddddd", DateField::kShortDate},
    {"dddd", DateField::kDayName},    {"ddd", DateField::kDayAbbreviation},
    {"dd", DateField::kDay2},         {"d", DateField::kDay},
    {"mmmm", DateField::kMonthName},  {"mmm", DateField::kMonthAbbreviation},
    {"mm", DateField::kMonth2},       {"m", DateField::kMonth},
    {"yyyy", DateField::kYear4},      {"yy", DateField::kYear2},
    {"y", DateField::kDayOfYear},     {"hh", DateField::kHour2},
    {"h", DateField::kHour},          {"nn", DateField::kMinute2},
    {"n", DateField::kMinute},        {"ss", DateField::kSecond2},
    {"s", DateField::kSecond},        {"am/pm", DateField::kHalfOfDay},
    {"ampm", DateField::kHalfOfDay},  {"a/p", DateField::kHalfOfDay},
    {"ttttt", DateField::kLongTime},  {"ww", DateField::kWeek},
    {"w", DateField::kDayOfWeek},     {"q", DateField::kQuarter},
    {"c", DateField::kGeneral},
};

void append_padded(std::string& target, unsigned value, std::size_t width) {
    std::array<char, 4> buffer;
    digits::write(buffer.data(), value, width);
    target.append(buffer.data(), width);
}

void append_plain(std::string& target, unsigned value) {
    append_padded(target, value, value < 10 ? 1 : value < 100 ? 2 : 3);
}

unsigned year_of(const DateTime& date) {
    return static_cast<unsigned>(static_cast<int>(date.date.year()));
}
unsigned month_of(const DateTime& date) { return static_cast<unsigned>(date.date.month()); }
unsigned day_of(const DateTime& date) { return static_cast<unsigned>(date.date.day()); }

// Days since the first of January, and weeks that begin on Sundays, of which the one with the first
// of January is the first.
unsigned day_of_year(const DateTime& date) {
    const auto start = date.date.year() / std::chrono::January / 1;
    return static_cast<unsigned>((sys_days{date.date} - sys_days{start}).count());
}
unsigned week_of_year(const DateTime& date) {
    const weekday start{date.date.year() / std::chrono::January / 1};
    return (day_of_year(date) + start.c_encoding()) / 7 + 1;
}
unsigned day_of_week(const DateTime& date) { return weekday{date.date}.c_encoding(); }

unsigned seconds_of(const DateTime& date) {
    return static_cast<unsigned>(date.time_of_day.count());
}
unsigned hour_of(const DateTime& date) { return seconds_of(date) / 3600 % 24; }
unsigned minute_of(const DateTime& date) { return seconds_of(date) / 60 % 60; }
unsigned second_of(const DateTime& date) { return seconds_of(date) % 60; }
bool is_evening(const DateTime& date) { return hour_of(date) >= 12; }
unsigned half_day_hour(unsigned hour) { return hour % 12 == 0 ? 12 : hour % 12; }

std::string_view month_name(const DateTime& date) {
    return calendar_names::kMonths[month_of(date) - 1];
}
std::string_view day_name(const DateTime& date) {
    return calendar_names::kWeekdays[day_of_week(date)];
}

// d/mm/yyyy
void append_short_date(std::string& target, const DateTime& date) {
    append_plain(target, day_of(date));
    target += '/';
    append_padded(target, month_of(date), 2);
    target += '/';
    append_padded(target, year_of(date), 4);
}

// dddd, d mmmm yyyy
void append_long_date(std::string& target, const DateTime& date) {
    target.append(day_name(date)).append(", ");
    append_plain(target, day_of(date));
    target.append(" ").append(month_name(date)).append(" ");
    append_padded(target, year_of(date), 4);
}

// h:nn:ss am/pm
void append_long_time(std::string& target, const DateTime& date) {
    append_plain(target, half_day_hour(hour_of(date)));
    target += ':';
    append_padded(target, minute_of(date), 2);
    target += ':';
    append_padded(target, second_of(date), 2);
    target += is_evening(date) ? " pm" : " am";
}

void append_field(std::string& target, DateField field, const DateTime& date, bool half_days) {
    const auto hour = [&] { return half_days ? half_day_hour(hour_of(date)) : hour_of(date); };
    // clang-format off
    switch (field) {
        case DateField::kGeneral: append_general_date(target, date); break;
        case DateField::kShortDate: append_short_date(target, date); break;
        case DateField::kLongDate: append_long_date(target, date); break;
        case DateField::kLongTime: append_long_time(target, date); break;
        case DateField::kDay: append_plain(target, day_of(date)); break;
        case DateField::kDay2: append_padded(target, day_of(date), 2); break;
        case DateField::kDayAbbreviation:
            target += day_name(date).substr(0, calendar_names::kAbbreviation); break;
        case DateField::kDayName: target += day_name(date); break;
        case DateField::kDayOfWeek: append_plain(target, day_of_week(date) + 1); break;
        case DateField::kWeek: append_plain(target, week_of_year(date)); break;
        case DateField::kMonth: append_plain(target, month_of(date)); break;
        case DateField::kMonth2: append_padded(target, month_of(date), 2); break;
        case DateField::kMonthAbbreviation:
            target += month_name(date).substr(0, calendar_names::kAbbreviation); break;
        case DateField::kMonthName: target += month_name(date); break;
        case DateField::kQuarter: append_plain(target, (month_of(date) + 2) / 3); break;
        case DateField::kDayOfYear: append_plain(target, day_of_year(date) + 1); break;
        case DateField::kYear2: append_padded(target, year_of(date), 2); break;
        case DateField::kYear4: append_padded(target, year_of(date), 4); break;
        case DateField::kHour: append_plain(target, hour()); break;
        case DateField::kHour2: append_padded(target, hour(), 2); break;
        case DateField::kMinute: append_plain(target, minute_of(date)); break;
        case DateField::kMinute2: append_padded(target, minute_of(date), 2); break;
        case DateField::kSecond: append_plain(target, second_of(date)); break;
        case DateField::kSecond2: append_padded(target, second_of(date), 2); break;
        case DateField::kLiteral:
        case DateField::kHalfOfDay: break;  // these have texts of their own
    }
    // clang-format on
}

// "m" right after an hour, with nothing but literals between, means minutes.
DateField minutes_after_hour(DateField field, DateField previous) {
    if (previous != DateField::kHour && previous != DateField::kHour2) {
        return field;
    }
    switch (field) {
        case DateField::kMonth:
            return DateField::kMinute;
        case DateField::kMonth2:
            return DateField::kMinute2;
        default:
            return field;
    }
}

}  // namespace

void append_general_date(std::string& target, const DateTime& date) {
    constexpr auto kZeroDay = std::chrono::year{1899} / std::chrono::December / 30;
    if (!date.has_time()) {
        append_short_date(target, date);
        return;
    }
    if (date.date != kZeroDay) {
        append_short_date(target, date);
        target += ' ';
    }
    append_long_time(target, date);
}

std::size_t match_date_field(std::string_view pattern, DateField& field) {
    for (const FieldName& name : kFields) {
        if (text::equal_ignoring_case(pattern.substr(0, name.text.size()), name.text)) {
            field = name.field;
            return name.text.size();
        }
    }
    return 0;
}

DatePattern::DatePattern(std::string_view pattern) {
    DateField previous = DateField::kLiteral;
    PatternReader reader(pattern);
    while (!reader.done()) {
        DateField field = DateField::kLiteral;
        const std::string_view text =
            reader.rest().substr(0, match_date_field(reader.rest(), field));
        if (text.empty()) {
            add_literal(reader.next().text);
            continue;
        }
        reader.skip(text.size());
        if (field == DateField::kHalfOfDay) {
            add_half_of_day(text);
        } else {
            field = minutes_after_hour(field, previous);
            tokens_.push_back({field, {}, {}});
        }
        previous = field;
    }
}

void DatePattern::add_literal(std::string_view text) {
    if (tokens_.empty() || tokens_.back().field != DateField::kLiteral) {
        tokens_.push_back({DateField::kLiteral, {}, {}});
    }
    tokens_.back().text.append(text);
}

// "AM/PM" and "A/P" are written in the pattern's own letters, "AMPM" in the regional ones.
void DatePattern::add_half_of_day(std::string_view text) {
    half_days_ = true;
    const std::size_t slash = text.find('/');
    if (slash == std::string_view::npos) {
        tokens_.push_back({DateField::kHalfOfDay, "am", "pm"});
    } else {
        tokens_.push_back({DateField::kHalfOfDay, std::string(text.substr(0, slash)),
                           std::string(text.substr(slash + 1))});
    }
}

void DatePattern::append(std::string& target, const DateTime& date) const {
    for (const Token& token : tokens_) {
        if (token.field == DateField::kLiteral) {
            target += token.text;
        } else if (token.field == DateField::kHalfOfDay) {
            target += is_evening(date) ? token.evening : token.text;
        } else {
            append_field(target, token.field, date, half_days_);
        }
    }
}

}  // namespace zr
