// Number patterns of the regional formatter: digits, rounding and sections.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "zrcreditbureau/currency.h"

namespace zr {

class PatternReader;

/// A number as its significant decimal digits: 0.d1d2d3... times ten to the power of `point`.
/// Neither the first nor the last digit is 0; zero has no digits and no sign.
class Decimal {
  public:
    explicit Decimal(Currency amount);
    /// The 15 significant digits of a finite number.
    explicit Decimal(double number);

    bool is_zero() const { return count_ == 0; }
    bool is_negative() const { return negative_; }
    /// Digits before the decimal point; negative for zeros right after it.
    int point() const { return point_; }
    /// Digits after the decimal point; not above 0 for a whole number.
    int fraction_digits() const { return count_ - point_; }

    /// The digit that counts ten to the power of `place`.
    char digit(int place) const {
        const int index = point_ - 1 - place;
        return index >= 0 && index < count_ ? digits_[static_cast<std::size_t>(index)] : '0';
    }

    /// Times ten to the power of `power`.
    void scale(int power) { point_ += is_zero() ? 0 : power; }

    /// Rounds to so many significant digits, halves away from zero.
    void round_to_digits(int keep);
    /// Rounds to so many digits after the decimal point, halves away from zero.
    void round_to_places(int places) { round_to_digits(point_ + places); }

  private:
    void strip_zeros();

    std::array<char, 24> digits_;
    int count_ = 0;
    int point_ = 0;
    bool negative_ = false;
};

/// A number pattern: up to three sections, for positive numbers, negative numbers and zero.
class NumberPattern {
  public:
    explicit NumberPattern(std::string_view pattern);

    /// Appends the number; false, with nothing appended, when the section that applies is empty.
    bool append(std::string& target, Decimal number) const;

  private:
    struct Token {
        enum class Kind { kLiteral, kWholeDigits, kPoint, kFractionDigits, kExponent };
        Kind kind;
        std::string text;  // of a literal; the letter of an exponent
        int places = 0;    // placeholders in a row
    };

    struct Section {
        std::vector<Token> tokens;
        int whole_places = 0;
        int least_whole = 0;  // digits written before the point, zeros if need be
        int fraction_places = 0;
        int least_fraction = 0;
        int scale = 0;
        int least_exponent = 0;
        bool grouped = false;
        bool has_point = false;
        bool has_exponent = false;
        bool signs_exponent = false;  // a positive exponent has its sign too

        static Section compile(PatternReader& reader);
        void add_literal(std::string_view text);
        void add_digit(char placeholder, bool after_point);
        Token& last_token(Token::Kind kind);
        bool add_exponent(PatternReader& reader, char letter);

        bool writes_number() const { return has_point || whole_places + fraction_places != 0; }
        void round(Decimal& number) const;
        void append(std::string& target, Decimal& number) const;
        void append_whole(std::string& target, const Decimal& number, int from, int to) const;
        void append_fraction(std::string& target, const Decimal& number, int from, int to) const;
        void append_exponent(std::string& target, const Token& token, int exponent) const;
    };

    const Section& section(std::size_t index) const;

    std::vector<Section> sections_;
};

}  // namespace zr
