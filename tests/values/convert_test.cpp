#include "values/convert.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace zr::convert {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

// The ISO text of a date, "none" without one.
std::string iso(const std::optional<DateTime>& date) { return date ? date->to_iso() : "none"; }

const char* const kNotAmounts[] = {
    "",       " ",        ".",        "-",       "+.",     "1e3",    "--1",      "1-",
    "- 1",    "1 2",      "0x1F",     "1.2.3",   "abc",    "\t1",    "١",        "1.5%",
    "(1)",    "1\n",      "NaN",      "inf",     "$",      "$.",     "$-5",      "$ 5",
    "5$",     "$$5",      "1,20",     "12,00",   ",200",   "1,,200", "1200,000", "1,2000",
    "1,200,", "1,200,00", "1.200,00", "1.5,000", "1, 200", "-,200",  ","};
const char* const kAmountsOnly[] = {"1,000", "$5", "-$1,000.5"};

TEST(Converters, ReadCurrency) {
    const struct {
        const char* text;
        const char* expected;
    } cases[] = {
        {"15000.99", "15000.99"},
        {"  -12.5 ", "-12.5"},
        {"+7", "7"},
        {".5", "0.5"},
        {"5.", "5"},
        {"-0", "0"},
        {"000000000000000000000000012", "12"},
        {"1.00004", "1"},
        {"1.00005", "1"},  // halves to even
        {"1.00015", "1.0002"},
        {"-1.00015", "-1.0002"},
        {"1.00005000000000001", "1.0001"},
        {"1.99995", "2"},
        {"-0.00004", "0"},
        {"922337203685477.5807", "922337203685477.5807"},
        {"922337203685477.5808", "922337203685477.5807"},
        {"922337203685477.58075", "922337203685477.5807"},
        {"-922337203685477.5808", "-922337203685477.5808"},
        {"-922337203685477.5809", "-922337203685477.5808"},
        {"99999999999999999999999999999", "922337203685477.5807"},
        {"-99999999999999999999999999999", "-922337203685477.5808"},
        {"1,200.00", "1200"},
        {" $500 ", "500"},
        {"-$1,200", "-1200"},
        {"+$.5", "0.5"},
        {"$12,345,678.90005", "12345678.9"},
        {"922,337,203,685,477.5808", "922337203685477.5807"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(to_currency(row.text).to_plain(), row.expected) << row.text;
        EXPECT_TRUE(is_currency(row.text)) << row.text;
    }
    for (const char* text : kNotAmounts) {
        EXPECT_TRUE(to_currency(text).is_zero()) << text;
        EXPECT_FALSE(is_currency(text)) << text;
    }
}

TEST(Converters, ReadNumbers) {
    const struct {
        std::string text;
        int decimals;
        double expected;
    } cases[] = {
        {" 42 ", 0, 42},
        {"-3.14159", 2, -3.14},
        {"0.5", 0, 0},  // halves to even, on the digits as they are written
        {"1.5", 0, 2},
        {"2.5", 0, 2},
        {"2.675", 2, 2.68},
        {"0.125", 2, 0.12},
        {"0.1250000000000000000001", 2, 0.13},
        {"9.995", 2, 10},
        {"-99.5", 0, -100},
        {".7", 5, 0.7},
        {"612.", 3, 612},
        {"12.7", -1, 13},
        {"0.1", 1, 0.1},
        {std::string(400, '9'), 0, kLargest},
        {"-" + std::string(400, '9'), 2, -kLargest},
        {"0." + std::string(400, '0') + "1", 500, 0},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(to_number(row.text, row.decimals), row.expected) << row.text;
    }
    EXPECT_FALSE(std::signbit(to_number("-0.4", 0)));
    for (const char* text : kNotAmounts) {
        EXPECT_EQ(to_number(text, 2), 0) << text;
    }
    for (const char* text : kAmountsOnly) {
        EXPECT_EQ(to_number(text, 2), 0) << text;
        EXPECT_FALSE(is_number(text)) << text;
    }
}

TEST(Converters, ReadDates) {
    const struct {
        const char* text;
        const char* date;       // to_date
        const char* date_time;  // to_date_time
    } cases[] = {
        {"2012-06-05", "2012-06-05", "2012-06-05"},
        {" 2012-06-05  ", "2012-06-05", "2012-06-05"},
        {"2012-02-29", "2012-02-29", "2012-02-29"},
        {"2011-02-29", "none", "none"},
        {"2012-13-01", "none", "none"},
        {"2012-00-10", "none", "none"},
        {"2012-06-31", "none", "none"},
        {"2012-06-00", "none", "none"},
        {"0100-01-01", "0100-01-01", "0100-01-01"},
        {"0001-01-01", "none", "none"},
        {"9999-12-31", "9999-12-31", "9999-12-31"},
        {"2012-6-5", "none", "none"},
        {"2012/06/05", "none", "none"},
        {"20120605", "none", "none"},
        {"12-06-05", "none", "none"},
        {"2012-06-05x", "none", "none"},
        {"+012-06-05", "none", "none"},
        {"", "none", "none"},
        {"2012-06-05T14:07:09", "none", "2012-06-05T14:07:09"},
        {"2012-06-05 14:07", "none", "2012-06-05T14:07:00"},
        {"2012-06-05T00:00:00", "none", "2012-06-05"},
        {"2012-06-05T14:07:09Z", "none", "2012-06-05T14:07:09"},
        {"2012-06-05T14:07:09.123+10:00", "none", "2012-06-05T14:07:09"},
        {"2012-06-05T14:07:09-0330", "none", "2012-06-05T14:07:09"},
        {"2012-06-05T14:07+10", "none", "2012-06-05T14:07:00"},
        {"2012-06-05Z", "none", "2012-06-05"},
        {"2012-06-05+10:00", "none", "2012-06-05"},
        {"2012-06-05.5", "none", "none"},
        {"2012-06-05T", "none", "none"},
        {"2012-06-05T24:00", "none", "none"},
        {"2012-06-05T14:60", "none", "none"},
        {"2012-06-05T14:07:60", "none", "none"},
        {"2012-06-05T1:07", "none", "none"},
        {"2012-06-05T14:07:", "none", "none"},
        {"2012-06-05T14:07:09.", "none", "none"},
        {"2012-06-05T14:07:09+", "none", "none"},
        {"2012-06-05T14:07:09+10:", "none", "none"},
        {"2012-06-05T14:07:09 x", "none", "none"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(iso(to_date(row.text)), row.date) << row.text;
        EXPECT_EQ(iso(to_date_time(row.text)), row.date_time) << row.text;
    }
}

TEST(Converters, ReadTimes) {
    const auto seconds = [](const char* text) {
        const auto time = to_time(text);
        return time ? time->count() : -1;
    };
    EXPECT_EQ(seconds("14:07:09"), 50829);
    EXPECT_EQ(seconds(" 00:00 "), 0);
    EXPECT_EQ(seconds("23:59"), 86340);
    for (const char* text : {"", "14", "14:7", "24:00", "14:07:61", "2:07", "14:07:09Z", "-1:00"}) {
        EXPECT_EQ(seconds(text), -1) << text;
    }
}

TEST(Converters, ReadDatesAsPeopleWriteThem) {
    const struct {
        const char* text;
        const char* expected;
    } cases[] = {
        {"1970-01-02", "1970-01-02"},
        {"1970-01-02T03:04:05", "1970-01-02T03:04:05"},
        {"2/01/1970", "1970-01-02"},
        {"2-1-1970", "1970-01-02"},
        {"02.01.70", "1970-01-02"},
        {" 2 Jan 1970 ", "1970-01-02"},
        {"02-jan-70", "1970-01-02"},
        {"2 JANUARY 1970", "1970-01-02"},
        {"2 Sept 1970", "1970-09-02"},
        {"1970/1/2", "1970-01-02"},
        {"1-1-29", "2029-01-01"},
        {"1-1-30", "1930-01-01"},
        {"1/1/00", "2000-01-01"},
        {"5/06/2012 2:07:09 pm", "2012-06-05T14:07:09"},
        {"5/06/2012 12:00 AM", "2012-06-05"},
        {"5/06/2012 12:30pm", "2012-06-05T12:30:00"},
        {"5 Jun 2012 14:07", "2012-06-05T14:07:00"},
        {"5/06/2012 14:07 pm", "none"},
        {"5/06/2012 0:07 am", "none"},
        {"5/06/2012 noon", "none"},
        {"5/06/2012x", "none"},
        {"29/02/2011", "none"},
        {"1/13/2012", "none"},
        {"2-1/1970", "none"},
        {"2 Jan", "none"},
        {"2 Ja 1970", "none"},
        {"2 Janvier 1970", "none"},
        {"1/1/197", "none"},
        {"1//1970", "none"},
        {"123/1/1970", "none"},
        {"-1/1/1970", "none"},
        {"14:07", "none"},
        {"today", "none"},
        {"", "none"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(iso(to_host_date(row.text)), row.expected) << row.text;
    }
}

TEST(Converters, WriteDoubles) {
    const struct {
        double value;
        const char* expected;
    } cases[] = {
        {0, "0"},
        {-0.0, "0"},
        {0.1, "0.1"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {-2.0 / 3, "-0.666666666666667"},
        {100, "100"},
        {999999999999999, "999999999999999"},
        {1e15, "1E+15"},
        {1234567890123456, "1.23456789012346E+15"},
        {0.0001, "0.0001"},
        {1.5e-5, "1.5E-05"},
        {-1e300, "-1E+300"},
        {std::numeric_limits<double>::quiet_NaN(), "NaN"},
        {-std::numeric_limits<double>::infinity(), "-Infinity"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(to_text(row.value), row.expected);
    }
}

TEST(Converters, AppendCsvFields) {
    EXPECT_EQ(parse_csv_append("", "VedaXMLAU"), "VedaXMLAU");
    EXPECT_EQ(parse_csv_append("VedaXMLAU", "B2BayAU"), "VedaXMLAU,B2BayAU");
    EXPECT_EQ(parse_csv_append("a", "b,c"), "a,\"b,c\"");
    EXPECT_EQ(parse_csv_append("a", "say \"x\""), "a,\"say \"\"x\"\"\"");
    EXPECT_EQ(parse_csv_append("a", " b"), "a,\" b\"");
    EXPECT_EQ(parse_csv_append("a", ""), "a,");
    EXPECT_EQ(parse_csv_append(parse_csv_append("", ""), "b"), "\"\",b");
}

}  // namespace
}  // namespace zr::convert
