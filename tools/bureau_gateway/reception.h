// The gateway's reception: HTTP's own rules, then the bureau, then the faults and the log.
#pragma once

#include <fstream>
#include <mutex>

#include "bureau_gateway/bureau.h"
#include "bureau_gateway/net/exchange.h"
#include "bureau_gateway/net/http_auth.h"
#include "bureau_gateway/net/http_reply.h"
#include "bureau_gateway/settings.h"

namespace zr::gateway {

class Reception {
  public:
    /// `faults` outlives the reception. Throws std::runtime_error when the log cannot be opened.
    Reception(const Settings& settings, FaultBoard& faults);

    /// Answers one exchange; called from many threads.
    Delivery answer(const HttpExchange& exchange);

  private:
    /// A status that HTTP's rules ask for; none when the bureau may see the request.
    std::optional<HttpReply> turn_away(const HttpExchange& exchange) const;

    /// A line an exchange: time, path, service code, outcome. Never what a message says.
    void log(std::string_view path, std::string_view service_code, std::string_view outcome);

    Bureau bureau_;
    HttpGuard guard_;
    FaultBoard& faults_;
    std::mutex mutex_;
    std::ofstream log_;
};

}  // namespace zr::gateway
