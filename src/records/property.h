// One declaration of a property serves the class, the bindings and the JSON form: the lists in the
// *_properties.inc files are expanded into the members of a record and into a table of these rows.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "values/currency.h"
#include "values/date_time.h"

namespace zr {

/// The type of a property as automation hosts see it.
enum class ValueType : std::uint8_t {
    kText,
    kBoolean,
    kCount,       ///< 16-bit signed integer
    kInteger,     ///< 32-bit signed integer
    kCurrency,    ///< fixed point, four decimals
    kDate,        ///< date with time of day
    kDateOrNull,  ///< a date, null or text
};

/// A value of any of these types, counts and integers alike as 32-bit integers. A text is a view
/// into the record it was read from, or its own where the record only computes it.
using Value =
    std::variant<Null, std::string_view, std::string, bool, std::int32_t, Currency, DateTime>;

/// The text that a value holds; "" when it holds none.
inline std::string_view text_of(const Value& value) {
    if (const std::string* own = std::get_if<std::string>(&value)) {
        return *own;
    }
    const std::string_view* view = std::get_if<std::string_view>(&value);
    return view != nullptr ? *view : std::string_view();
}

inline bool holds_text(const Value& value) {
    return std::holds_alternative<std::string_view>(value) ||
           std::holds_alternative<std::string>(value);
}

/// One property of a record.
template <class Record>
struct Property {
    std::string_view name;
    ValueType type;
    std::string_view meaning;
    Value (*read)(const Record&);
    /// Stores a value of the property's type (any DateOrNull alternative for kDateOrNull); null
    /// where hosts may only read.
    void (*write)(Record&, const Value&);
};

namespace property_detail {

inline Value to_value(const std::string& text) { return std::string_view(text); }
inline Value to_value(std::string&& text) { return std::move(text); }
inline Value to_value(bool flag) { return flag; }
inline Value to_value(std::int16_t count) { return std::int32_t{count}; }
inline Value to_value(Currency amount) { return amount; }
/// Null for a date that was never set.
inline Value to_value(const DateTime& date) { return date.is_date() ? Value(date) : Value(Null{}); }
inline Value to_value(const DateOrNull& value) {
    if (const std::string* text = std::get_if<std::string>(&value)) {
        return std::string_view(*text);
    }
    const auto date = held_date(value);
    return date ? Value(*date) : Value(Null{});
}

/// A whole number as a count, staying at the ends of a count's range.
constexpr std::int16_t to_count(std::int64_t value) {
    using Range = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(std::clamp<std::int64_t>(value, Range::min(), Range::max()));
}

inline DateOrNull to_date_or_null(const Value& value) {
    if (holds_text(value)) {
        return std::string(text_of(value));
    }
    const DateTime* date = std::get_if<DateTime>(&value);
    return date ? DateOrNull(*date) : DateOrNull(Null{});
}

}  // namespace property_detail
}  // namespace zr
