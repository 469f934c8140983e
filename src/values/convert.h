// The runtime's converters: text to typed values, independent of regional settings.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "zrcreditbureau/currency.h"
#include "zrcreditbureau/date_time.h"

namespace zr::convert {

/// Text to money: a number as for to_number, perhaps with a dollar sign behind its sign and a comma
/// before every three digits of its whole part ("-$1,200.00"). Halves beyond the fourth decimal
/// round to even; amounts past the range stay at its ends. 0 for other text.
Currency to_currency(std::string_view text);

/// Whether the text is money in that syntax.
bool is_currency(std::string_view text);

/// Text to a number rounded (halves to even, on the decimal text) to `decimals` decimals. Digits, a
/// decimal point, an optional sign, surrounding blanks; nothing else: 0 for other text. A number
/// too large stays at the largest value.
double to_number(std::string_view text, int decimals);

/// Whether the text is a number in that syntax.
bool is_number(std::string_view text);

/// Text in the form "yyyy-mm-dd" to a date. Surrounding blanks allowed; none for other text, and
/// for days that do not exist or are before the year 100, where the hosts' dates begin.
std::optional<DateTime> to_date(std::string_view text);

/// Text in the form "yyyy-mm-dd", "yyyy-mm-ddThh:nn[:ss]" or with a blank for the T, to a date with
/// time of day. A fraction of a second, and a "Z" or a zone offset at the end, are accepted and
/// ignored.
std::optional<DateTime> to_date_time(std::string_view text);

/// Text in the form "hh:nn[:ss]" to seconds since midnight.
std::optional<std::chrono::seconds> to_time(std::string_view text);

/// Text that a host would mean as a date: ISO ("1970-01-02", with or without a time), day first
/// ("2/01/1970", "2-1-1970"), year first ("1970/1/2"), or with a month's name ("2 Jan 1970",
/// "02-Jan-70"); then perhaps a blank and a time ("14:07", "2:07:09 pm"). Two-digit years 00-29 are
/// 2000-2029, 30-99 are 1930-1999.
std::optional<DateTime> to_host_date(std::string_view text);

/// The date in a value: itself, or the one that its text means.
std::optional<DateTime> read_date(const DateOrNull& value);

/// A double as text: up to 15 significant digits, "1E+15" and "1.5E-05" where plain digits do not
/// serve, no trailing zeros.
std::string to_text(double value);

/// `list` with `value` appended as one more comma-separated field, quoted where it holds a comma, a
/// quote, a line break or an outer blank. The first field of an empty list stands alone; it is
/// quoted when it is empty, so that it is not lost.
std::string parse_csv_append(std::string_view list, std::string_view value);

}  // namespace zr::convert
