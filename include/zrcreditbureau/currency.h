// Money: a fixed-point amount with four decimals, counted exactly.
#pragma once

#include <compare>
#include <cstdint>
#include <iosfwd>
#include <limits>
#include <string>

namespace zr {

/// An amount of money as a 64-bit count of ten-thousandths. Sums that would overflow stay at the
/// largest (or smallest) value: nothing wraps.
class Currency {
  public:
    static constexpr std::int64_t kUnitsPerWhole = 10'000;

    constexpr Currency() = default;

    /// The amount of `units` ten-thousandths.
    static constexpr Currency from_units(std::int64_t units) { return Currency(units); }

    /// A whole number of dollars, saturating at the ends of the range.
    static constexpr Currency from_whole(std::int64_t whole) {
        std::int64_t units = 0;
        if (__builtin_mul_overflow(whole, kUnitsPerWhole, &units)) {
            return Currency(whole < 0 ? kLowest : kHighest);
        }
        return Currency(units);
    }

    constexpr std::int64_t units() const { return units_; }

    /// The amount rounded down (towards minus infinity) to a whole number.
    constexpr std::int64_t floor_whole() const {
        const std::int64_t whole = units_ / kUnitsPerWhole;
        return units_ % kUnitsPerWhole < 0 ? whole - 1 : whole;
    }

    constexpr bool is_zero() const { return units_ == 0; }

    /// Adds, staying at the end of the range where the sum would pass it.
    constexpr Currency& operator+=(Currency other) {
        std::int64_t sum = 0;
        if (__builtin_add_overflow(units_, other.units_, &sum)) {
            sum = other.units_ < 0 ? kLowest : kHighest;
        }
        units_ = sum;
        return *this;
    }

    /// Subtracts, staying at the end of the range where the difference would pass it.
    constexpr Currency& operator-=(Currency other) {
        std::int64_t difference = 0;
        if (__builtin_sub_overflow(units_, other.units_, &difference)) {
            difference = other.units_ > 0 ? kLowest : kHighest;
        }
        units_ = difference;
        return *this;
    }

    friend constexpr Currency operator+(Currency left, Currency right) { return left += right; }
    friend constexpr Currency operator-(Currency left, Currency right) { return left -= right; }
    constexpr Currency operator-() const { return Currency() - *this; }

    constexpr auto operator<=>(const Currency&) const = default;

    /// Plain decimal text with exactly four decimals: "15000.9900", "-0.5000".
    std::string to_fixed4() const;

    /// Plain decimal text without trailing zeros: "15000.99", "0", "-0.5".
    std::string to_plain() const;

    /// Writes to_plain().
    friend std::ostream& operator<<(std::ostream& out, Currency amount);

  private:
    static constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();
    static constexpr std::int64_t kHighest = std::numeric_limits<std::int64_t>::max();

    explicit constexpr Currency(std::int64_t units) : units_(units) {}

    std::int64_t units_ = 0;
};

}  // namespace zr
