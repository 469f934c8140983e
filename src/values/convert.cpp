#include "values/convert.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "values/digits.h"
#include "values/text.h"

namespace zr::convert {
namespace {

/// The digits of a number in plain decimal notation.
struct DecimalText {
    bool negative = false;
    std::string_view whole;  ///< of money perhaps with commas
    std::string_view fraction;
};

bool all_digits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), digits::is_digit);
}

// One to three digits, then groups of a comma and three digits.
bool is_grouped(std::string_view text) {
    constexpr std::size_t kGroup = 4;
    const std::size_t lead = text.size() % kGroup;
    bool grouped = lead != 0 && all_digits(text.substr(0, lead));
    for (std::size_t at = lead; grouped && at < text.size(); at += kGroup) {
        grouped = text[at] == ',' && all_digits(text.substr(at + 1, kGroup - 1));
    }
    return grouped;
}

enum class Syntax : std::uint8_t { kNumber, kMoney };

std::optional<DecimalText> read_decimal(std::string_view text, Syntax syntax) {
    text = text::trim(text);
    DecimalText result;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        result.negative = text.front() == '-';
        text.remove_prefix(1);
    }
    if (syntax == Syntax::kMoney && text.starts_with('$')) {
        text.remove_prefix(1);
    }
    const std::size_t point = text.find('.');
    result.whole = text.substr(0, point);
    if (point != std::string_view::npos) {
        result.fraction = text.substr(point + 1);
    }
    const bool any = !result.whole.empty() || !result.fraction.empty();
    const bool whole =
        all_digits(result.whole) || (syntax == Syntax::kMoney && is_grouped(result.whole));
    if (!any || !whole || !all_digits(result.fraction)) {
        return std::nullopt;
    }
    return result;
}

// Whether digits cut off after the digit `last` round it up: halves go to the even digit.
bool rounds_up(std::string_view cut_off, char last) {
    if (cut_off.empty() || cut_off.front() != '5') {
        return !cut_off.empty() && cut_off.front() > '5';
    }
    const bool beyond_half = cut_off.find_first_not_of('0', 1) != std::string_view::npos;
    return beyond_half || (last - '0') % 2 != 0;
}

// One more in the last place of a decimal text, which may hold a point.
void increment(std::string& number) {
    for (std::size_t i = number.size(); i-- != 0;) {
        if (number[i] == '.') {
            continue;
        }
        if (number[i] != '9') {
            ++number[i];
            return;
        }
        number[i] = '0';
    }
    number.insert(0, 1, '1');
}

double parse_double(const std::string& number) {
    double value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc::result_out_of_range) {
        // Too small is 0; too large stays at the largest value.
        const bool large = number.find_first_not_of("0.") < number.find('.');
        return large ? std::numeric_limits<double>::max() : 0;
    }
    return value;
}

}  // namespace

Currency to_currency(std::string_view text) {
    const auto decimal = read_decimal(text, Syntax::kMoney);
    if (!decimal) {
        return {};
    }
    constexpr std::size_t kDecimals = 4;
    constexpr auto kHighest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    const std::uint64_t limit = decimal->negative ? kHighest + 1 : kHighest;
    const std::string_view kept = decimal->fraction.substr(0, kDecimals);
    std::uint64_t units = 0;
    char last = '0';
    const auto append = [&](char digit) {
        if (digit == ',') {
            return;
        }
        const auto value = static_cast<std::uint64_t>(digit - '0');
        constexpr std::uint64_t kFarFromAnyLimit = kHighest / 100;
        if (units < kFarFromAnyLimit) {
            units = units * 10 + value;
        } else {
            units = units > (limit - value) / 10 ? limit : units * 10 + value;
        }
        last = digit;
    };
    std::for_each(decimal->whole.begin(), decimal->whole.end(), append);
    std::for_each(kept.begin(), kept.end(), append);
    for (std::size_t i = kept.size(); i < kDecimals; ++i) {
        append('0');
    }
    if (rounds_up(decimal->fraction.substr(kept.size()), last) && units < limit) {
        ++units;
    }
    return Currency::from_units(static_cast<std::int64_t>(decimal->negative ? 0 - units : units));
}

double to_number(std::string_view text, int decimals) {
    const auto decimal = read_decimal(text, Syntax::kNumber);
    if (!decimal) {
        return 0;
    }
    const auto places = static_cast<std::size_t>(std::max(decimals, 0));
    const std::string_view kept = decimal->fraction.substr(0, places);
    std::string number(decimal->whole.empty() ? "0" : decimal->whole);
    const char last = kept.empty() ? number.back() : kept.back();
    number.append(".").append(kept);
    if (rounds_up(decimal->fraction.substr(kept.size()), last)) {
        increment(number);
    }
    const double value = parse_double(number);
    return decimal->negative && value != 0 ? -value : value;
}

bool is_number(std::string_view text) { return read_decimal(text, Syntax::kNumber).has_value(); }

bool is_currency(std::string_view text) { return read_decimal(text, Syntax::kMoney).has_value(); }

std::string to_text(double value) {
    if (!std::isfinite(value)) {
        return std::isnan(value) ? "NaN" : value < 0 ? "-Infinity" : "Infinity";
    }
    constexpr int kSignificantDigits = 15;
    std::array<char, 32> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                      value == 0 ? 0.0 : value,  // a negative zero has no sign
                                      std::chars_format::general, kSignificantDigits);
    std::replace(buffer.data(), result.ptr, 'e', 'E');
    return {buffer.data(), result.ptr};
}

std::string parse_csv_append(std::string_view list, std::string_view value) {
    std::string result(list);
    if (!result.empty()) {
        result += ',';
    }
    // An empty first field is quoted, or the list would still look empty.
    const bool quoted = value.find_first_of(",\"\r\n") != std::string_view::npos ||
                        value != text::trim(value) || (value.empty() && list.empty());
    if (!quoted) {
        return result.append(value);
    }
    return result.append("\"").append(text::replace_all(value, "\"", "\"\"")).append("\"");
}

}  // namespace zr::convert
