// One HTTP exchange as the server hands it over: what came in, who answers it, and the answer as
// the steps that put it on the wire, so that a fault is only a different list of steps.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
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

struct HttpExchange {
    std::string method;
    std::string path;
    std::string content_type;
    std::string authorization;
    std::string body;
    bool keep_alive = true;
    /// Set instead of a usable request when reading it failed in a way that deserves a status.
    std::optional<int> refused_status;
};

/// Answers an exchange; called from the connections' threads, many at a time.
using ExchangeHandler = std::function<Delivery(const HttpExchange&)>;

}  // namespace zr::gateway
