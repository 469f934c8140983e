// What members take, so that only what they mean compiles: a text literal is no Boolean, a Boolean
// or a character is no number, nullptr is nothing at all.
#pragma once

#include <concepts>
#include <cstdint>
#include <limits>
#include <string_view>
#include <type_traits>
#include <utility>

#include "zrcreditbureau/date_time.h"

namespace zr {

/// A text in UTF-8: whatever makes a std::string_view, but nullptr. A view of what it was made of.
struct TextArg : std::string_view {
    template <class T>
    requires(std::convertible_to<const T&, std::string_view> &&
             !std::is_null_pointer_v<T>) constexpr TextArg(const T& text)
        : std::string_view(text) {}
};

/// true or false and nothing that merely converts to them.
struct FlagArg {
    bool value;
    template <std::same_as<bool> T>
    constexpr FlagArg(T flag) : value(flag) {}
    constexpr operator bool() const { return value; }
};

template <class T, class... Types>
concept OneOf = (std::same_as<T, Types> || ...);

/// An integer of any width; no Boolean and no character.
template <class T>
concept WholeNumber =
    std::integral<T> && !OneOf<T, bool, char, wchar_t, char8_t, char16_t, char32_t>;

/// A whole number; one beyond 64 bits with a sign stays at their end.
struct NumberArg {
    std::int64_t value;
    template <WholeNumber T>
    constexpr NumberArg(T number)
        : value(std::in_range<std::int64_t>(number) ? static_cast<std::int64_t>(number)
                                                    : std::numeric_limits<std::int64_t>::max()) {}

    /// The number in 16 bits, at the end of their range where it is beyond.
    constexpr std::int16_t clamped() const {
        using Range = std::numeric_limits<std::int16_t>;
        return static_cast<std::int16_t>(value < Range::min()   ? Range::min()
                                         : value > Range::max() ? Range::max()
                                                                : value);
    }
};

/// A date, a text or null; nullptr is none of them.
struct DateArg : DateOrNull {
    template <class T>
    requires(std::constructible_from<DateOrNull, T> &&
             !std::is_null_pointer_v<std::remove_cvref_t<T>>) constexpr DateArg(T&& value)
        : DateOrNull(std::forward<T>(value)) {}
};

}  // namespace zr
