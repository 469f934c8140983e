#include "zrcreditbureau/currency.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <ostream>

#include "values/digits.h"

namespace zr {
namespace {

constexpr std::size_t kDecimals = 4;
constexpr auto kUnits = static_cast<std::uint64_t>(Currency::kUnitsPerWhole);

}  // namespace

std::string Currency::to_fixed4() const {
    const bool negative = units_ < 0;
    const std::uint64_t magnitude =
        negative ? 0 - static_cast<std::uint64_t>(units_) : static_cast<std::uint64_t>(units_);
    std::array<char, 32> buffer;
    char* to = buffer.data();
    if (negative) {
        *to++ = '-';
    }
    to = std::to_chars(to, buffer.data() + buffer.size(), magnitude / kUnits).ptr;
    *to++ = '.';
    to = digits::write(to, static_cast<unsigned>(magnitude % kUnits), kDecimals);
    return {buffer.data(), to};
}

std::string Currency::to_plain() const {
    std::string text = to_fixed4();
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') {
        text.pop_back();
    }
    return text;
}

std::ostream& operator<<(std::ostream& out, Currency amount) { return out << amount.to_plain(); }

}  // namespace zr
