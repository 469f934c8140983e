// One HTTP exchange as the server hands it over: what came in, and who answers it.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "bureau_gateway/net/delivery.h"

namespace zr::gateway {

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
