// Date patterns of the regional formatter.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "zrcreditbureau/date_time.h"

namespace zr {

class PatternReader;

/// "c", the default text of a date: the short date, then a blank and the long time where there is a
/// time of day. A time on the zero day of hosts (30 December 1899) stands alone.
void append_general_date(std::string& target, const DateTime& date);

/// What a date pattern has at some place.
enum class DateField {
    kLiteral,
    kGeneral,
    kShortDate,
    kLongDate,
    kLongTime,
    kDay,
    kDay2,
    kDayAbbreviation,
    kDayName,
    kDayOfWeek,
    kWeek,
    kMonth,
    kMonth2,
    kMonthAbbreviation,
    kMonthName,
    kQuarter,
    kDayOfYear,
    kYear2,
    kYear4,
    kHour,
    kHour2,
    kMinute,
    kMinute2,
    kSecond,
    kSecond2,
    kHalfOfDay,
};

/// Takes the date field that `pattern` begins with: its length in bytes, 0 when there is none.
std::size_t match_date_field(std::string_view pattern, DateField& field);

class DatePattern {
  public:
    explicit DatePattern(std::string_view pattern);

    void append(std::string& target, const DateTime& date) const;

  private:
    struct Token {
        DateField field;
        std::string text;     // of a literal
        std::string evening;  // of a half of the day, whose morning is `text`
    };

    void add_literal(std::string_view text);
    void add_half_of_day(std::string_view text);

    std::vector<Token> tokens_;
    bool half_days_ = false;
};

}  // namespace zr
