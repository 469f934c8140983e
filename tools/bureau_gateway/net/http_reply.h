// An HTTP reply before it becomes steps, and the steps that send it, with its faults.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bureau_gateway/faults.h"
#include "bureau_gateway/net/exchange.h"

namespace zr::gateway {

struct HttpReply {
    int status = 200;
    std::string content_type = "text/xml";
    std::string charset = "utf-8";  ///< "": none is declared
    std::vector<std::pair<std::string_view, std::string>> headers{};
    std::string body{};
};

/// A short page about a status.
HttpReply status_page(int status);

/// The steps that send the reply; the faults change the reply first and then the way it is sent.
Delivery deliver(HttpReply reply, const std::vector<Fault>& faults, bool keep_alive);

}  // namespace zr::gateway
