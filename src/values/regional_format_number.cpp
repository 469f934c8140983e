#include "values/regional_format_number.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "values/regional_format_reader.h"

namespace zr {
namespace {

constexpr int kCurrencyPlaces = 4;
constexpr int kDoubleDigits = 15;
constexpr int kGroup = 3;
constexpr int kHighestPlace = std::numeric_limits<int>::max();
constexpr std::size_t kPositive = 0;
constexpr std::size_t kNegative = 1;
constexpr std::size_t kZero = 2;
constexpr std::size_t kSections = 3;

}  // namespace

Decimal::Decimal(Currency amount) : negative_(amount.units() < 0) {
    const auto units = static_cast<std::uint64_t>(amount.units());
    const auto result = std::to_chars(digits_.data(), digits_.data() + digits_.size(),
                                      negative_ ? 0 - units : units);
    count_ = static_cast<int>(result.ptr - digits_.data());
    point_ = count_ - kCurrencyPlaces;
    if (amount.is_zero()) {
        count_ = 0;
    }
    strip_zeros();
}

Decimal::Decimal(double number) : negative_(number < 0) {
    std::array<char, 32> text;
    const auto result = std::to_chars(text.data(), text.data() + text.size(), std::abs(number),
                                      std::chars_format::scientific, kDoubleDigits - 1);
    // d.dddddddddddddde+xx
    constexpr int kExponentAt = kDoubleDigits + 1;
    digits_[0] = text[0];
    std::copy(text.data() + 2, text.data() + kExponentAt, digits_.data() + 1);
    const bool negative_exponent = text[kExponentAt + 1] == '-';
    int exponent = 0;
    std::from_chars(text.data() + kExponentAt + 2, result.ptr, exponent);
    count_ = kDoubleDigits;
    point_ = 1 + (negative_exponent ? -exponent : exponent);
    strip_zeros();
}

void Decimal::round_to_digits(int keep) {
    if (keep >= count_) {
        return;
    }
    const bool up = keep >= 0 && digits_[static_cast<std::size_t>(keep)] >= '5';
    count_ = std::max(keep, 0);
    if (up) {
        while (count_ > 0 && digits_[static_cast<std::size_t>(count_ - 1)] == '9') {
            --count_;
        }
        if (count_ == 0) {
            digits_[0] = '1';
            count_ = 1;
            ++point_;
            return;
        }
        ++digits_[static_cast<std::size_t>(count_ - 1)];
    }
    strip_zeros();
}

void Decimal::strip_zeros() {
    while (count_ > 0 && digits_[static_cast<std::size_t>(count_ - 1)] == '0') {
        --count_;
    }
    if (count_ == 0) {
        point_ = 0;
        negative_ = false;
    }
}

// The token that pieces of one kind in a row share.
NumberPattern::Token& NumberPattern::Section::last_token(Token::Kind kind) {
    if (tokens.empty() || tokens.back().kind != kind) {
        tokens.push_back({kind, {}});
    }
    return tokens.back();
}

void NumberPattern::Section::add_literal(std::string_view text) {
    last_token(Token::Kind::kLiteral).text.append(text);
}

void NumberPattern::Section::add_digit(char placeholder, bool after_point) {
    const bool required = placeholder == '0';
    if (after_point) {
        ++fraction_places;
        least_fraction = required ? fraction_places : least_fraction;
        ++last_token(Token::Kind::kFractionDigits).places;
    } else {
        ++whole_places;
        // A zero makes every place to its right a zero too.
        least_whole += required || least_whole != 0 ? 1 : 0;
        ++last_token(Token::Kind::kWholeDigits).places;
    }
}

// Takes the sign and the places of an exponent; false when what follows the letter is none.
bool NumberPattern::Section::add_exponent(PatternReader& reader, char letter) {
    const std::string_view rest = reader.rest();
    const std::size_t end = std::min(rest.find_first_not_of("0#", 1), rest.size());
    if (has_exponent || end < 2 || (rest.front() != '+' && rest.front() != '-')) {
        return false;
    }
    has_exponent = true;
    signs_exponent = rest.front() == '+';
    least_exponent = static_cast<int>(
        std::count(rest.begin() + 1, rest.begin() + static_cast<std::ptrdiff_t>(end), '0'));
    tokens.push_back({Token::Kind::kExponent, std::string(1, letter)});
    reader.skip(end);
    return true;
}

NumberPattern::Section NumberPattern::Section::compile(PatternReader& reader) {
    Section section;
    bool& after_point = section.has_point;
    int commas = 0;  // since the last digit before the point
    while (!reader.done()) {
        const PatternReader::Piece piece = reader.next();
        const char character = piece.literal || piece.text.empty() ? '\0' : piece.text.front();
        if (character == ';') {
            break;
        }
        if (character == '0' || character == '#') {
            section.grouped = section.grouped || commas != 0;
            commas = 0;
            section.add_digit(character, after_point);
        } else if (character == ',') {
            commas += section.whole_places != 0 && !after_point ? 1 : 0;
        } else if (character == '.' && !after_point) {
            after_point = true;
            section.scale -= kGroup * commas;
            commas = 0;
            section.tokens.push_back({Token::Kind::kPoint, {}});
        } else if ((character != 'E' && character != 'e') ||
                   !section.add_exponent(reader, character)) {
            section.scale += character == '%' ? 2 : 0;
            section.add_literal(piece.text);
        }
    }
    section.scale -= kGroup * commas;
    return section;
}

// Gives the number the scale and the places of the section.
void NumberPattern::Section::round(Decimal& number) const {
    if (!writes_number()) {
        return;
    }
    number.scale(scale);
    if (has_exponent) {
        number.round_to_digits(whole_places + fraction_places);
    } else {
        number.round_to_places(fraction_places);
    }
}

// Writes the digits of the places from `from` down to `to`.
void NumberPattern::Section::append_whole(std::string& target, const Decimal& number, int from,
                                          int to) const {
    std::array<char, 64> buffer;  // a number seldom has more
    std::size_t size = 0;
    from = std::min(from, std::max(number.point(), least_whole) - 1);
    int group = from % kGroup;
    for (int place = from; place >= to; --place, --group) {
        buffer[size++] = number.digit(place);
        if (group == 0) {
            group = kGroup;
            if (grouped && place != 0) {
                buffer[size++] = ',';
            }
        }
        if (size + 2 > buffer.size()) {
            target.append(buffer.data(), size);
            size = 0;
        }
    }
    target.append(buffer.data(), size);
}

void NumberPattern::Section::append_fraction(std::string& target, const Decimal& number, int from,
                                             int to) const {
    to = std::max(to, -std::max(number.fraction_digits(), least_fraction));
    for (int place = from; place >= to; --place) {
        target += number.digit(place);
    }
}

void NumberPattern::Section::append_exponent(std::string& target, const Token& token,
                                             int exponent) const {
    target += token.text;
    if (exponent < 0) {
        target += '-';
    } else if (signs_exponent) {
        target += '+';
    }
    const std::string digits = std::to_string(std::abs(exponent));
    const auto least = static_cast<std::size_t>(least_exponent);
    target.append(least - std::min(least, digits.size()), '0').append(digits);
}

void NumberPattern::Section::append(std::string& target, Decimal& number) const {
    int exponent = 0;
    if (has_exponent && !number.is_zero()) {
        exponent = number.point() - whole_places;
        number.scale(-exponent);
    }
    int place = whole_places;
    for (const Token& token : tokens) {
        switch (token.kind) {
            case Token::Kind::kLiteral:
                target += token.text;
                break;
            case Token::Kind::kWholeDigits:
                // The first placeholder also takes the digits that have none of their own.
                append_whole(target, number, place == whole_places ? kHighestPlace : place - 1,
                             place - token.places);
                place -= token.places;
                break;
            case Token::Kind::kPoint:
                if (whole_places == 0) {
                    append_whole(target, number, kHighestPlace, 0);
                }
                target += '.';
                break;
            case Token::Kind::kFractionDigits:
                append_fraction(target, number, place - 1, place - token.places);
                place -= token.places;
                break;
            case Token::Kind::kExponent:
                append_exponent(target, token, exponent);
                break;
        }
    }
}

NumberPattern::NumberPattern(std::string_view pattern) {
    PatternReader reader(pattern);
    while (!reader.done() && sections_.size() < kSections) {
        sections_.push_back(Section::compile(reader));
    }
    if (sections_.empty()) {
        sections_.emplace_back();
    }
}

// The section for numbers of that sign; the first one where it is left out.
const NumberPattern::Section& NumberPattern::section(std::size_t index) const {
    return index < sections_.size() && !sections_[index].tokens.empty() ? sections_[index]
                                                                        : sections_[kPositive];
}

bool NumberPattern::append(std::string& target, Decimal number) const {
    const Section* chosen = &section(number.is_negative() ? kNegative
                                     : number.is_zero()   ? kZero
                                                          : kPositive);
    if (chosen->tokens.empty()) {
        return false;
    }
    chosen->round(number);
    if (number.is_zero()) {
        // It may only have become zero.
        chosen = section(kZero).tokens.empty() ? chosen : &section(kZero);
    } else if (number.is_negative() && chosen == sections_.data()) {
        target += '-';
    }
    chosen->append(target, number);
    return true;
}

}  // namespace zr
