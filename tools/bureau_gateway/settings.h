// What a gateway is started with.
#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "bureau_gateway/faults.h"

namespace zr::gateway {

/// What the server asks of a client in HTTP itself, before it looks at the message.
enum class HttpAuth { kNone, kBasic, kDigest };

/// Every bound of the server stands here.
struct Limits {
    std::size_t connections = 64;  ///< served at a time; one more waits until one ends
    std::size_t header_bytes = std::size_t{16} * 1024;
    std::size_t body_bytes = std::size_t{1024} * 1024;
    std::chrono::milliseconds handshake{10'000};
    std::chrono::milliseconds idle{120'000};     ///< between two requests of a connection
    std::chrono::milliseconds transfer{60'000};  ///< without progress, while reading or writing
};

struct Settings {
    std::string host = "127.0.0.1";  ///< a loopback address
    unsigned short port = 0;         ///< 0: a free one
    std::string user = "demo";
    std::string password = "demo-secret";
    HttpAuth http_auth = HttpAuth::kNone;
    std::vector<Fault> faults{};
    /// The day that reports are dated back from; none: the current date of each exchange.
    std::optional<std::chrono::year_month_day> today{};
    std::filesystem::path certificate_file{};  ///< where the authority is written; empty: nowhere
    std::filesystem::path replies_folder{};    ///< replies of the user's own; empty: none
    std::filesystem::path data_folder{};       ///< schemas and templates; empty: beside the program
    std::filesystem::path log_file{};          ///< empty: no log
    Limits limits{};
};

}  // namespace zr::gateway
