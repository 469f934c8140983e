// A reply as the steps that put it on the wire, so that a fault is only a different list of steps.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace zr::gateway {

struct SendBytes {
    std::string bytes;
};
/// The same piece, time after time: a large reply that is never held whole.
struct SendRepeated {
    std::string piece;
    std::uint64_t times = 0;
};
struct Wait {
    std::chrono::milliseconds time{};
};
/// The connection is dropped at once, without a TLS farewell.
struct Drop {};

using Step = std::variant<SendBytes, SendRepeated, Wait, Drop>;

/// What the server does with one exchange.
struct Delivery {
    std::vector<Step> steps;
    bool keep_alive = true;  ///< false: the connection ends properly after the last step
};

}  // namespace zr::gateway
