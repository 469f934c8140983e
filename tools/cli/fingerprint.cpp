#include "cli/fingerprint.h"

namespace zr::cli {

std::string Fingerprint::text() const {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string digits;
    for (int shift = 60; shift >= 0; shift -= 4) {
        digits += kDigits[hash_ >> shift & 0xF];
    }
    return digits;
}

}  // namespace zr::cli
