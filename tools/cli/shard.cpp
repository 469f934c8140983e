#include "cli/shard.h"

#include <charconv>

#include "cli/failure.h"

namespace zr::cli {

Shard parse_shard(const std::string& text) {
    Shard shard;
    const char* const end = text.data() + text.size();
    const auto part = std::from_chars(text.data(), end, shard.part);
    if (part.ec == std::errc() && part.ptr != end && *part.ptr == '/') {
        const auto of = std::from_chars(part.ptr + 1, end, shard.of);
        if (of.ec == std::errc() && of.ptr == end && shard.part >= 1 && shard.part <= shard.of) {
            return shard;
        }
    }
    throw MisuseError("--shard must be a part of a number of parts, from 1/n to n/n, such as 2/5.");
}

}  // namespace zr::cli
