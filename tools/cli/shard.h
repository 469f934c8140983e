// A part of the input, so that several machines can share the work.
#pragma once

#include <cstdint>
#include <string>

namespace zr::cli {

/// Part `part` of `of` parts. Parts are contiguous: put together in their order they are the whole.
struct Shard {
    std::uint32_t part = 1;
    std::uint32_t of = 1;

    bool is_whole() const { return of == 1; }
    /// Where the part begins among `count` things; it ends where the next part begins.
    std::uint64_t begin(std::uint64_t count) const { return at(count, part - 1); }
    std::uint64_t end(std::uint64_t count) const { return at(count, part); }

  private:
    std::uint64_t at(std::uint64_t count, std::uint64_t boundary) const {
        // count * boundary / of without overflow
        return count / of * boundary + count % of * boundary / of;
    }
};

/// "2/5" is the second of five parts. Throws MisuseError.
Shard parse_shard(const std::string& text);

}  // namespace zr::cli
