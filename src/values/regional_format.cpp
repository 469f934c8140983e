#include "values/regional_format.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "values/convert.h"
#include "values/regional_format_date.h"
#include "values/regional_format_number.h"
#include "values/regional_format_reader.h"
#include "values/text.h"

namespace zr {
namespace {

struct NamedPattern {
    std::string_view name;
    std::string_view number;  // the pattern it stands for; empty where the name cannot apply
    std::string_view date;
};

constexpr NamedPattern kNamedPatterns[] = {
    {"", "", ""},
    {"general number", "", ""},
    {"currency", "$#,##0.00", ""},
    {"fixed", "0.00", ""},
    {"standard", "#,##0.00", ""},
    {"percent", "0.00%", ""},
    {"scientific", "0.00E+00", ""},
    {"yes/no", R"("Yes";"Yes";"No")", ""},
    {"true/false", R"("True";"True";"False")", ""},
    {"on/off", R"("On";"On";"Off")", ""},
    {"general date", "", "c"},
    {"long date", "", "dddddd"},
    {"medium date", "", "dd-mmm-yy"},
    {"short date", "", "ddddd"},
    {"long time", "", "ttttt"},
    {"medium time", "", "hh:nn am/pm"},
    {"short time", "", "hh:nn"},
};

// The kinds of value that a custom pattern can apply to. One that names digits applies to numbers.
// One that begins with a date field applies to dates. Literals alone apply to both.
struct Applies {
    bool to_numbers = false;
    bool to_dates = false;
};

Applies examine(std::string_view pattern) {
    bool digits = false;
    bool dates_first = false;
    bool others = false;
    PatternReader reader(pattern);
    while (!reader.done()) {
        DateField field = DateField::kLiteral;
        const bool is_date = match_date_field(reader.rest(), field) != 0;
        const PatternReader::Piece piece = reader.next();
        if (piece.literal) {
            continue;
        }
        if (piece.text == "0" || piece.text == "#") {
            digits = true;
        } else if (is_date || piece.text == "/" || piece.text == ":") {
            dates_first = dates_first || !digits;
        } else if (piece.text.find_first_of("@&<>!") != std::string_view::npos) {
            others = true;
        }
    }
    const bool literal_only = !digits && !dates_first && !others;
    return {digits || literal_only, dates_first || literal_only};
}

constexpr std::string_view kGroupedCents = "#,##0.00";

/// An amount as kGroupedCents has it, with the prefix before its digits: what a report writes by
/// the thousand. The same text as the pattern's.
void append_money(std::string& target, std::string_view prefix, Currency amount) {
    constexpr std::uint64_t kUnitsPerCent = 100;
    constexpr std::ptrdiff_t kGroup = 3;
    const bool below_zero = amount < Currency();
    const auto units = static_cast<std::uint64_t>(amount.units());
    const std::uint64_t cents =
        ((below_zero ? 0 - units : units) + kUnitsPerCent / 2) / kUnitsPerCent;
    std::array<char, 24> digits;
    const char* const end =
        std::to_chars(digits.data(), digits.data() + digits.size(), cents / 100).ptr;
    if (below_zero && cents != 0) {
        target += '-';
    }
    target += prefix;
    for (const char* at = digits.data(); at != end; ++at) {
        if (at != digits.data() && (end - at) % kGroup == 0) {
            target += ',';
        }
        target += *at;
    }
    target += '.';
    target += static_cast<char>('0' + cents % 100 / 10);
    target += static_cast<char>('0' + cents % 10);
}

}  // namespace

struct RegionalFormat::Compiled {
    std::optional<NumberPattern> number;
    /// What stands before the digits, where the pattern is the usual one of money.
    std::optional<std::string_view> money_prefix;
    std::optional<DatePattern> date;

    void set(std::string_view number_pattern, std::string_view date_pattern) {
        if (!number_pattern.empty()) {
            number.emplace(number_pattern);
        }
        for (const std::string_view prefix : {"$", ""}) {
            if (number_pattern.starts_with(prefix) &&
                number_pattern.substr(prefix.size()) == kGroupedCents) {
                money_prefix = prefix;
            }
        }
        if (!date_pattern.empty()) {
            date.emplace(date_pattern);
        }
    }

    static std::unique_ptr<const Compiled> compile(std::string_view pattern) {
        auto result = std::make_unique<Compiled>();
        for (const NamedPattern& named : kNamedPatterns) {
            if (text::equal_ignoring_case(named.name, pattern)) {
                result->set(named.number, named.date);
                return result;
            }
        }
        const Applies applies = examine(pattern);
        result->set(applies.to_numbers ? pattern : std::string_view(),
                    applies.to_dates ? pattern : std::string_view());
        return result;
    }

    template <typename Number>
    bool append(std::string& target, Number value) const {
        return number && number->append(target, Decimal(value));
    }
};

// Both regions write numbers and dates alike.
RegionalFormat::RegionalFormat(std::string_view pattern, Region /*region*/)
    : compiled_(Compiled::compile(pattern)) {}
RegionalFormat::~RegionalFormat() = default;
RegionalFormat::RegionalFormat(RegionalFormat&&) noexcept = default;
RegionalFormat& RegionalFormat::operator=(RegionalFormat&&) noexcept = default;

void RegionalFormat::append(std::string& target, Currency amount) const {
    if (compiled_->money_prefix) {
        append_money(target, *compiled_->money_prefix, amount);
    } else if (!compiled_->append(target, amount)) {
        target += amount.to_plain();
    }
}

void RegionalFormat::append(std::string& target, double number) const {
    if (!std::isfinite(number) || !compiled_->append(target, number)) {
        target += convert::to_text(number);
    }
}

void RegionalFormat::append(std::string& target, const DateTime& date) const {
    if (!date.is_date()) {
        return;
    }
    if (compiled_->date) {
        compiled_->date->append(target, date);
    } else {
        append_general_date(target, date);
    }
}

std::string RegionalFormat::format(Currency amount) const {
    std::string result;
    append(result, amount);
    return result;
}

std::string RegionalFormat::format(double number) const {
    std::string result;
    append(result, number);
    return result;
}

std::string RegionalFormat::format(const DateTime& date) const {
    std::string result;
    append(result, date);
    return result;
}

}  // namespace zr
