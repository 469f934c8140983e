// A short text that tells inputs apart; no protection against whoever wants two to look alike.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zr::cli {

/// The 64-bit Fowler-Noll-Vo hash of a sequence of texts.
class Fingerprint {
  public:
    void add(std::string_view text) {
        for (const char byte : text) {
            take(static_cast<unsigned char>(byte));
        }
        take(0x100);  // where one text ends is part of it
    }
    /// Sixteen hexadecimal digits.
    std::string text() const;

  private:
    void take(std::uint64_t value) { hash_ = (hash_ ^ value) * 0x100000001B3; }

    std::uint64_t hash_ = 0xCBF29CE484222325;
};

}  // namespace zr::cli
