#include "values/regional_format.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "values/convert.h"

namespace zr {
namespace {

using namespace std::chrono_literals;

Currency money(const char* text) { return convert::to_currency(text); }

struct NumberCase {
    const char* pattern;
    const char* number;
    const char* expected;
};

// Every number is formatted both as money and as a double: the digits decide, not the type.
void check(const NumberCase& row) {
    SCOPED_TRACE(std::string(row.pattern) + " of " + row.number);
    const RegionalFormat format(row.pattern, Region::kNewZealand);
    EXPECT_EQ(format.format(money(row.number)), row.expected);
    EXPECT_EQ(format.format(convert::to_number(row.number, 20)), row.expected);
}

TEST(RegionalFormat, WritesNamedNumberPatterns) {
    const NumberCase cases[] = {
        {"currency", "1234567.891", "$1,234,567.89"},
        {"currency", "-1234.5", "-$1,234.50"},
        {"Currency", "0.255", "$0.26"},
        {"currency", "0", "$0.00"},
        {"currency", "999.995", "$1,000.00"},
        {"currency", "999999.995", "$1,000,000.00"},
        {"currency", "-0.004", "$0.00"},
        {"currency", "-0.005", "-$0.01"},
        {"currency", "100", "$100.00"},
        {"STANDARD", "-1234.5", "-1,234.50"},
        {"fixed", "-1234.5", "-1234.50"},
        {"fixed", ".5", "0.50"},
        {"general number", "-1234.5", "-1234.5"},
        {"", "1234.5", "1234.5"},
        {"percent", "0.255", "25.50%"},
        {"percent", "-0.0725", "-7.25%"},
        {"scientific", "1234.5", "1.23E+03"},
        {"scientific", "-0.0123", "-1.23E-02"},
        {"scientific", "9.999", "1.00E+01"},
        {"scientific", "0", "0.00E+00"},
        {"yes/no", "0", "No"},
        {"yes/no", "0.1", "Yes"},
        {"True/False", "-1", "True"},
        {"true/false", "0", "False"},
        {"on/off", "1", "On"},
        {"on/off", "0", "Off"},
        // Names of date patterns cannot apply to numbers.
        {"medium date", "41065.5", "41065.5"},
        {"short time", "2", "2"},
    };
    for (const NumberCase& row : cases) {
        check(row);
    }
}

TEST(RegionalFormat, WritesCustomNumberPatterns) {
    const NumberCase cases[] = {
        {"##0.00%", "0.255", "25.50%"},
        {"#,###,###,###,##0", "1234567", "1,234,567"},
        {"#,###,###,###,##0", "0", "0"},
        {"#,##0.00;(#,##0.00);\"nil\"", "5", "5.00"},
        {"#,##0.00;(#,##0.00);\"nil\"", "-5", "(5.00)"},
        {"#,##0.00;(#,##0.00);\"nil\"", "0", "nil"},
        {"#,##0.00;(#,##0.00);\"nil\"", "-0.001", "nil"},  // it rounds to zero
        {"0;(0)", "0", "0"},
        {"0;;\"nil\"", "-5", "-5"},  // a section left out is that of positive numbers
        {"0;;", "0", "0"},
        {";(0)", "5", "5"},
        {";(0)", "-5", "(5)"},
        {"0", "0.5", "1"},  // halves away from zero
        {"0", "2.5", "3"},
        {"0", "-2.5", "-3"},
        {"0", "-0.4", "0"},
        {"00000", "42", "00042"},
        {"0,000", "42", "0,042"},
        {"#", "0", ""},
        {"#,###", "1234.4", "1,234"},
        {"#.##", "0.5", ".5"},
        {"#.##", "5", "5."},  // the point stays
        {"0.0##", "1.25", "1.25"},
        {"0.0##", "3", "3.0"},
        {".00", "12.5", "12.50"},
        {"000-0000", "1234567", "123-4567"},
        {"000-0000", "12345678", "1234-5678"},
        {"#0,", "1234567", "1235"},
        {"#,##0,,.0", "1234567890", "1,234.6"},
        {"0,.00", "1234.5", "1.23"},
        {"0.0%;-0.0%", "-0.5", "-50.0%"},
        {"$0.00 \"CR\"", "5", "$5.00 CR"},
        {"\\#0", "5", "#5"},
        {"\\\"0\\\"", "5", "\"5\""},
        {"0\"open", "5", "5open"},
        {"0 days", "5", "5 days"},
        {"NZ$#,##0", "1234", "NZ$1,234"},
        {"€0.0", "5", "€5.0"},
        {"0E+0", "12345", "1E+4"},
        {"##0.0E+0", "123456", "123.5E+3"},
        {".", "1.6", "2."},
        {".", "-0.4", "."},
        {".%", "0.166", "17.%"},
        {"0.0e-00", "1234", "1.2e03"},
        {"0.0e-00", "0.012", "1.2e-02"},
        {"0E", "5", "5E"},
        {"\"none\"", "5", "none"},
        // Patterns of other kinds.
        {"yyyy-mm-dd", "41065.5", "41065.5"},
        {"hh:nn", "2.5", "2.5"},
        {"@@@", "2.5", "2.5"},
        {";;", "2.5", "2.5"},
    };
    for (const NumberCase& row : cases) {
        check(row);
    }
}

TEST(RegionalFormat, KeepsTheEndsOfBothRanges) {
    const RegionalFormat currency("currency");
    EXPECT_EQ(currency.format(Currency::from_units(std::numeric_limits<std::int64_t>::min())),
              "-$922,337,203,685,477.58");
    EXPECT_EQ(currency.format(1e20), "$100,000,000,000,000,000,000.00");
    EXPECT_EQ(currency.format(1e-300), "$0.00");
    EXPECT_EQ(currency.format(1.005), "$1.01");  // on the 15 digits, not on the binary fraction
    EXPECT_EQ(RegionalFormat("percent").format(0.12345), "12.35%");
    EXPECT_EQ(currency.format(-0.0), "$0.00");
    EXPECT_EQ(currency.format(std::numeric_limits<double>::infinity()), "Infinity");
    EXPECT_EQ(RegionalFormat("").format(1e15), "1E+15");
    EXPECT_EQ(RegionalFormat("0").format(1e15), "1000000000000000");
    EXPECT_EQ(RegionalFormat("scientific").format(1.5e-300), "1.50E-300");
}

TEST(RegionalFormat, WritesDatePatterns) {
    const DateTime day = DateTime::ymd(2012, 6, 5);  // a Tuesday
    const DateTime afternoon{day.date, 14h + 7min + 9s};
    const DateTime night{DateTime::ymd(2000, 12, 31).date, 5min};  // a Sunday
    const DateTime noon{DateTime::ymd(1999, 1, 1).date, 12h};
    const DateTime time_alone{DateTime::ymd(1899, 12, 30).date, 9h + 30min};
    const struct {
        const char* pattern;
        DateTime date;
        const char* expected;
    } cases[] = {
        {"medium date", day, "05-Jun-12"},
        {"Medium Date", night, "31-Dec-00"},
        {"short date", day, "5/06/2012"},
        {"long date", day, "Tuesday, 5 June 2012"},
        {"general date", day, "5/06/2012"},
        {"general date", afternoon, "5/06/2012 2:07:09 pm"},
        {"general date", time_alone, "9:30:00 am"},
        {"", afternoon, "5/06/2012 2:07:09 pm"},
        {"long time", afternoon, "2:07:09 pm"},
        {"medium time", afternoon, "02:07 pm"},
        {"short time", afternoon, "14:07"},
        {"long time", night, "12:05:00 am"},
        {"medium time", noon, "12:00 pm"},
        {"short time", night, "00:05"},
        {"yyyy-mm-dd", day, "2012-06-05"},
        {"YYYYMMDDHHNN", afternoon, "201206051407"},
        {"yyyy-mm-ddThh:nn:ss", afternoon, "2012-06-05T14:07:09"},
        {"d dd ddd dddd ddddd dddddd", day, "5 05 Tue Tuesday 5/06/2012 Tuesday, 5 June 2012"},
        {"m mm mmm mmmm", day, "6 06 Jun June"},
        {"y yy yyyy", day, "157 12 2012"},
        {"q w ww y", night, "4 1 54 366"},
        {"q w ww y", noon, "1 6 1 1"},
        {"h hh n nn s ss", afternoon, "14 14 7 07 9 09"},
        {"h:mm:ss", afternoon, "14:07:09"},  // m after h means minutes
        {"hh \"and\" m", afternoon, "14 and 7"},
        {"hh:nn mm", afternoon, "14:07 06"},
        {"h:nn AM/PM", afternoon, "2:07 PM"},
        {"h:nn am/pm", night, "12:05 am"},
        {"hh A/P a/p AMPM", afternoon, "02 P p pm"},
        {"ttttt hh", afternoon, "2:07:09 pm 14"},
        {"c", afternoon, "5/06/2012 2:07:09 pm"},
        {"\\d\\a\\y d", day, "day 5"},
        {"\"day\" d, zzz.", day, "day 5, zzz."},
        {"dd/mm/20yy", day, "05/06/2012"},
        {"d MMMM \xC3\xA9", day, "5 June \xC3\xA9"},
        {"\"none\"", day, "none"},
        // Number patterns cannot apply to dates.
        {"currency", day, "5/06/2012"},
        {"yes/no", afternoon, "5/06/2012 2:07:09 pm"},
        {"#,##0.00", day, "5/06/2012"},
        {"0 days", day, "5/06/2012"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(RegionalFormat(row.pattern).format(row.date), row.expected) << row.pattern;
    }
    for (const DateTime& none :
         {DateTime(), DateTime::ymd(2012, 2, 30), DateTime::ymd(99, 12, 31),
          DateTime::ymd(10000, 1, 1), DateTime{day.date, std::chrono::hours(24)}}) {
        for (const char* pattern : {"medium date", "yyyy", "", "currency"}) {
            EXPECT_EQ(RegionalFormat(pattern).format(none), "") << pattern;
        }
    }
    EXPECT_EQ(RegionalFormat("yyyy").format(DateTime::ymd(100, 1, 1)), "0100");
    EXPECT_EQ(RegionalFormat("yyyy").format(DateTime::ymd(9999, 12, 31)), "9999");
}

TEST(RegionalFormat, WritesTheUsualMoneyAsTheGeneralPatternDoes) {
    // The same patterns spelled so that they are not recognised as the usual ones.
    const RegionalFormat usual("currency");
    const RegionalFormat general("\\$#,##0.00");
    const RegionalFormat usual_plain("standard");
    const RegionalFormat general_plain("#,##0.00\"\"");
    constexpr std::int64_t kHighest = std::numeric_limits<std::int64_t>::max();
    std::vector<std::int64_t> values = {0, kHighest, -kHighest, -kHighest - 1};
    for (std::int64_t power = 1; power < kHighest / 10; power *= 10) {
        for (const std::int64_t near :
             {power - 1, power, power + 1, power + 49, power + 50, 5 * power, 5 * power - 1}) {
            values.push_back(near);
            values.push_back(-near);
        }
    }
    for (const std::int64_t units : values) {
        const Currency amount = Currency::from_units(units);
        EXPECT_EQ(usual.format(amount), general.format(amount)) << units;
        EXPECT_EQ(usual_plain.format(amount), general_plain.format(amount)) << units;
    }
}

TEST(RegionalFormat, AppendsToWhatIsThere) {
    std::string text = "Paid ";
    RegionalFormat format("currency");
    format = RegionalFormat("standard");
    format.append(text, money("5"));
    RegionalFormat("medium date").append(text += " on ", DateTime::ymd(2012, 6, 5));
    EXPECT_EQ(text, "Paid 5.00 on 05-Jun-12");
}

}  // namespace
}  // namespace zr
