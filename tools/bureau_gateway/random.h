// A small deterministic generator: the same seed gives the same content on every machine, which the
// standard library's distributions do not promise.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zr::gateway {

/// FNV-1a.
constexpr std::uint64_t hash(std::string_view text, std::uint64_t seed = 0xcbf29ce484222325ull) {
    for (const char c : text) {
        seed = (seed ^ static_cast<unsigned char>(c)) * 0x100000001b3ull;
    }
    return seed;
}

class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed) { next(); }

    std::uint64_t next() {
        state_ += 0x9e3779b97f4a7c15ull;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ mixed >> 30) * 0xbf58476d1ce4e5b9ull;
        mixed = (mixed ^ mixed >> 27) * 0x94d049bb133111ebull;
        return mixed ^ mixed >> 31;
    }

    /// From `low` to `high`, both included; `low` when there is nothing between them.
    int between(int low, int high) {
        return high <= low
                   ? low
                   : low + static_cast<int>(next() % static_cast<std::uint64_t>(high - low + 1));
    }

    bool percent(int chance) { return between(1, 100) <= chance; }

    /// So many decimal digits, the first of them not 0.
    std::string digits(int count) {
        std::string text(1, static_cast<char>('0' + between(1, 9)));
        while (static_cast<int>(text.size()) < count) {
            text += static_cast<char>('0' + between(0, 9));
        }
        return text;
    }

  private:
    std::uint64_t state_;
};

}  // namespace zr::gateway
