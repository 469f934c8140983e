// How the rows by name are made of the members themselves: property<&Request::LastName>("LastName",
// "family name").
#pragma once

#include <limits>
#include <type_traits>

#include "zrcreditbureau/products.h"
#include "zrcreditbureau/property.h"

namespace zr {
namespace property_detail {

inline Value to_value(const std::string& text) { return std::string_view(text); }
inline Value to_value(std::string_view text) { return text; }
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
template <class Enumeration>
requires std::is_enum_v<Enumeration> Value to_value(Enumeration value) {
    return static_cast<std::int32_t>(value);
}

/// The value as what a member takes.
template <class Given>
Given given(const Value& value) {
    if constexpr (std::is_same_v<Given, TextArg>) {
        return text_of(value);
    } else if constexpr (std::is_same_v<Given, FlagArg>) {
        return std::get<bool>(value);
    } else if constexpr (std::is_same_v<Given, NumberArg>) {
        return std::get<std::int32_t>(value);
    } else {
        return std::get<std::remove_cvref_t<Given>>(value);
    }
}
template <>
inline DateArg given<DateArg>(const Value& value) {
    if (holds_text(value)) {
        return std::string(text_of(value));
    }
    const DateTime* date = std::get_if<DateTime>(&value);
    return date != nullptr ? DateOrNull(*date) : DateOrNull(Null{});
}

template <class T>
constexpr ValueType type_of() {
    using Plain = std::remove_cvref_t<T>;
    if constexpr (std::is_same_v<Plain, bool>) {
        return ValueType::kBoolean;
    } else if constexpr (std::is_same_v<Plain, std::int16_t>) {
        return ValueType::kCount;
    } else if constexpr (std::is_enum_v<Plain>) {
        return ValueType::kInteger;
    } else if constexpr (std::is_same_v<Plain, Currency>) {
        return ValueType::kCurrency;
    } else if constexpr (std::is_same_v<Plain, DateTime>) {
        return ValueType::kDate;
    } else if constexpr (std::is_same_v<Plain, DateOrNull>) {
        return ValueType::kDateOrNull;
    } else {
        return ValueType::kText;
    }
}

/// What hosts call an enumeration.
template <class T>
inline constexpr std::string_view kEnumeration{};
template <>
inline constexpr std::string_view kEnumeration<zreProductType> = "zreProductType";
template <>
inline constexpr std::string_view kEnumeration<zreOptionType> = "zreOptionType";

template <class Member>
struct MemberOf;
template <class Member, class Owner>
struct MemberOf<Member Owner::*> {
    using Class = Owner;
    using Type = Member;
};

}  // namespace property_detail

/// The row of a member that is called to read it, of the record itself or of what `Record` is a
/// base of. Hosts may write it where the member can be.
template <auto member, class Record = typename property_detail::MemberOf<decltype(member)>::Class>
constexpr Property<Record> property(std::string_view name, std::string_view meaning) {
    using Owner = typename property_detail::MemberOf<decltype(member)>::Class;
    using Member = typename property_detail::MemberOf<decltype(member)>::Type;
    using Result = decltype((std::declval<const Owner&>().*member)());
    Property<Record> row{.name = name,
                         .type = property_detail::type_of<Result>(),
                         .meaning = meaning,
                         .enumeration = property_detail::kEnumeration<std::remove_cvref_t<Result>>,
                         .secret = false,
                         .read = nullptr,
                         .write = nullptr};
    row.read = [](const Record& record) {
        return property_detail::to_value((static_cast<const Owner&>(record).*member)());
    };
    if constexpr (requires { typename Member::Kind; }) {
        using Kind = typename Member::Kind;
        row.secret = Kind::kSecret;
        row.write = [](Record& record, const Value& value) {
            using Given = std::remove_cvref_t<typename Kind::Given>;
            (static_cast<Owner&>(record).*member)(property_detail::given<Given>(value));
        };
    }
    return row;
}

}  // namespace zr
