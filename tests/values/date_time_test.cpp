#include "zrcreditbureau/date_time.h"

#include <gtest/gtest.h>

#include <chrono>

namespace zr {
namespace {

using namespace std::chrono_literals;

TEST(DateTime, WritesIsoText) {
    DateTime date = DateTime::ymd(2012, 6, 5);
    EXPECT_EQ(date.to_iso(), "2012-06-05");
    date.time_of_day = 14h + 7min + 9s;
    EXPECT_EQ(date.to_iso(), "2012-06-05T14:07:09");
    EXPECT_EQ(date.date_only().to_iso(), "2012-06-05");
    EXPECT_EQ(DateTime::ymd(987, 12, 31).to_iso(), "0987-12-31");
}

TEST(DateTime, CountsCalendarYearsBack) {
    const struct {
        DateTime from;
        int years;
        const char* expected;
    } cases[] = {
        {DateTime::ymd(2012, 6, 5), 4, "2008-06-05"},
        {DateTime::ymd(2012, 2, 29), 1, "2011-02-28"},
        {DateTime::ymd(2012, 2, 29), 4, "2008-02-29"},
        {DateTime::ymd(2011, 2, 28), 3, "2008-02-28"},
        {{DateTime::ymd(2012, 2, 29).date, 8h}, 2, "2010-02-28T08:00:00"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(row.from.years_before(row.years).to_iso(), row.expected);
    }
}

TEST(DateTime, OrdersByDateThenTime) {
    const DateTime morning{DateTime::ymd(2012, 6, 5).date, 1h};
    EXPECT_LT(DateTime::ymd(2012, 6, 5), morning);
    EXPECT_LT(morning, DateTime::ymd(2012, 6, 6));
}

TEST(DateTime, NowIsACalendarDate) {
    const DateTime now = DateTime::now();
    EXPECT_TRUE(now.date.ok());
    EXPECT_GE(now.time_of_day, 0s);
    EXPECT_LT(now.time_of_day, 24h);
    // Zones differ from UTC by less than a day.
    const auto days = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
    EXPECT_LE(std::chrono::abs(std::chrono::sys_days{now.date} - days), std::chrono::days{1});
}

TEST(DateOrNull, TellsNullTextAndDateApart) {
    EXPECT_TRUE(is_null(DateOrNull()));
    EXPECT_FALSE(is_null(DateOrNull(std::string())));
    EXPECT_FALSE(held_date(DateOrNull(std::string("2012-06-05"))));
    EXPECT_EQ(held_date(DateOrNull(DateTime::ymd(2012, 6, 5))), DateTime::ymd(2012, 6, 5));
}

}  // namespace
}  // namespace zr
