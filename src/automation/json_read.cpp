// The records' JSON form read: values checked against the type of the property they are for.
#include <charconv>
#include <limits>
#include <optional>
#include <span>
#include <string>

#include "automation/json_form.h"
#include "values/convert.h"
#include "values/text.h"

namespace zr::automation {
namespace {

using Kind = JsonValue::Kind;

/// Exponents past this are refused rather than written out.
constexpr int kLargestExponent = 64;

std::string shown(std::string_view name) {
    constexpr std::size_t kLongestName = 64;
    return std::string(text::first(name, kLongestName));
}

[[noreturn]] void refuse(std::string_view name, std::string_view reason) {
    throw JsonError(std::string(name) + " " + std::string(reason) + ".");
}

/// The digits of a JSON number without an exponent; none for one that is out of all proportion.
std::optional<std::string> plain_decimal(std::string_view number) {
    const std::size_t mark = number.find_first_of("eE");
    if (mark == std::string_view::npos) {
        return std::string(number);
    }
    std::string_view exponent_digits = number.substr(mark + 1);
    if (exponent_digits.starts_with('+')) {
        exponent_digits.remove_prefix(1);
    }
    int exponent = 0;
    const auto parsed = std::from_chars(exponent_digits.data(),
                                        exponent_digits.data() + exponent_digits.size(), exponent);
    if (parsed.ec != std::errc() || exponent > kLargestExponent || exponent < -kLargestExponent) {
        return std::nullopt;
    }
    std::string_view mantissa = number.substr(0, mark);
    const bool negative = mantissa.starts_with('-');
    mantissa.remove_prefix(negative ? 1 : 0);
    const std::size_t point = mantissa.find('.');
    std::string digits(mantissa.substr(0, point));
    // Where the point goes in the digits written one behind the other.
    auto position = static_cast<std::ptrdiff_t>(digits.size()) + exponent;
    if (point != std::string_view::npos) {
        digits += mantissa.substr(point + 1);
    }
    if (position < 1) {
        digits.insert(0, static_cast<std::size_t>(1 - position), '0');
        position = 1;
    }
    const auto whole = static_cast<std::size_t>(position);
    digits.resize(std::max(digits.size(), whole), '0');
    digits.insert(whole, ".");
    return (negative ? "-" : "") + digits;
}

/// The whole number that the JSON number is, when it is one in this range.
std::optional<std::int32_t> whole_number(const JsonValue& json, std::int32_t lowest,
                                         std::int32_t highest) {
    if (json.kind() != Kind::kNumber) {
        return std::nullopt;
    }
    const std::optional<std::string> digits = plain_decimal(json.text());
    if (!digits) {
        return std::nullopt;
    }
    const std::string_view whole = std::string_view(*digits).substr(0, digits->find('.'));
    const std::string_view rest = std::string_view(*digits).substr(whole.size());
    std::int32_t value = 0;
    const auto parsed = std::from_chars(whole.data(), whole.data() + whole.size(), value);
    if (parsed.ec != std::errc() || rest.find_first_not_of(".0") != std::string_view::npos ||
        value < lowest || value > highest) {
        return std::nullopt;
    }
    return value;
}

Value whole_value(const JsonValue& json, std::string_view name, std::int32_t lowest,
                  std::int32_t highest) {
    const std::optional<std::int32_t> value = whole_number(json, lowest, highest);
    if (!value) {
        refuse(name, "must be a whole number from " + std::to_string(lowest) + " to " +
                         std::to_string(highest));
    }
    return *value;
}

/// True for text in the form of a JSON number.
bool reads_as_number(const std::string& text) {
    try {
        return parse_json(text).kind() == Kind::kNumber;
    } catch (const JsonError&) {
        return false;
    }
}

/// Money may also stand as text, in which many programs keep it exact.
Value currency_value(const JsonValue& json, std::string_view name) {
    const bool number = json.kind() == Kind::kNumber ||
                        (json.kind() == Kind::kText && reads_as_number(json.text()));
    const std::optional<std::string> digits = number ? plain_decimal(json.text()) : std::nullopt;
    if (!digits) {
        refuse(name, "must be a number");
    }
    return convert::to_currency(*digits);
}

Value date_value(const JsonValue& json, std::string_view name) {
    std::optional<DateTime> date;
    if (json.kind() == Kind::kText) {
        date = convert::to_date_time(json.text());
        if (!date) {
            date = convert::to_host_date(json.text());
        }
    }
    if (!date) {
        refuse(name, "must be a date as text, for example \"2012-06-15\"");
    }
    return *date;
}

/// A text in the JSON form of a date is one; any other text is left to the property's own rule.
Value date_or_null_value(const JsonValue& json, std::string_view name) {
    if (json.is_null()) {
        return Null{};
    }
    if (json.kind() != Kind::kText) {
        refuse(name, "must be a date as text, for example \"2012-06-15\", or null");
    }
    const std::optional<DateTime> date = convert::to_date_time(json.text());
    return date ? Value(*date) : Value(std::string_view(json.text()));
}

template <class Record>
const Property<Record>* find_property(std::span<const Property<Record>> properties,
                                      std::string_view name) {
    for (const Property<Record>& property : properties) {
        if (property.name == name) {
            return &property;
        }
    }
    for (const Property<Record>& property : properties) {
        if (text::equal_ignoring_case(property.name, name)) {
            return &property;
        }
    }
    return nullptr;
}

template <class Record>
void write_property(Record& record, std::span<const Property<Record>> properties,
                    std::string_view owner, const JsonValue::Member& member) {
    const Property<Record>* property = find_property(properties, member.first);
    const std::string name =
        std::string(owner) + "." +
        (property != nullptr ? std::string(property->name) : shown(member.first));
    if (property == nullptr) {
        refuse(name, "is not a known property");
    }
    if (property->write == nullptr) {
        refuse(name, "is read-only");
    }
    property->write(record, to_value(property->type, member.second, name));
}

const JsonValue& require_object(const JsonValue& json, std::string_view name) {
    if (!json.is_object()) {
        refuse(name, "must be an object");
    }
    return json;
}

void read_option(const std::string& id, const JsonValue& json, Request& request) {
    const std::string owner = "Request.Options." + shown(id);
    for (const auto& [name, value] : require_object(json, owner).members()) {
        const std::string path = owner + "." + shown(name);
        if (text::equal_ignoring_case(name, "Checked")) {
            request.OptionChecked(id, std::get<bool>(to_value(ValueType::kBoolean, value, path)));
        } else if (text::equal_ignoring_case(name, "Value")) {
            request.OptionValue(id, text_of(to_value(ValueType::kText, value, path)));
        } else if (text::equal_ignoring_case(name, "Tag")) {
            request.OptionTag(id, text_of(to_value(ValueType::kText, value, path)));
        } else {
            refuse(path, "is not one of Checked, Value and Tag");
        }
    }
}

}  // namespace

Value to_value(ValueType type, const JsonValue& json, std::string_view name) {
    switch (type) {
        case ValueType::kText:
            if (json.kind() != Kind::kText) {
                refuse(name, "must be a text");
            }
            return std::string_view(json.text());
        case ValueType::kBoolean:
            if (json.kind() != Kind::kBoolean) {
                refuse(name, "must be true or false");
            }
            return json.boolean();
        case ValueType::kCount:
            return whole_value(json, name, std::numeric_limits<std::int16_t>::min(),
                               std::numeric_limits<std::int16_t>::max());
        case ValueType::kInteger:
            return whole_value(json, name, std::numeric_limits<std::int32_t>::min(),
                               std::numeric_limits<std::int32_t>::max());
        case ValueType::kCurrency:
            return currency_value(json, name);
        case ValueType::kDate:
            return date_value(json, name);
        case ValueType::kDateOrNull:
            break;
    }
    return date_or_null_value(json, name);
}

void read_request(const JsonValue& json, Request& request) {
    for (const JsonValue::Member& member : require_object(json, "Request").members()) {
        if (text::equal_ignoring_case(member.first, "Options")) {
            for (const auto& [id, option] :
                 require_object(member.second, "Request.Options").members()) {
                read_option(id, option, request);
            }
        } else {
            write_property(request, request_properties(), "Request", member);
        }
    }
}

void read_settings(const JsonValue& json, Service& service) {
    const std::string owner = "Services." + std::string(service.ServiceName());
    for (const JsonValue::Member& member : require_object(json, owner).members()) {
        write_property(service, service.settings(), owner, member);
    }
}

}  // namespace zr::automation
