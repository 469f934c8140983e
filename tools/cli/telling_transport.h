// A transport that keeps what its last exchange was like and, where that is asked for, tells it.
#pragma once

#include <memory>

#include "zrcreditbureau/http.h"

namespace zr::cli {

class TellingTransport final : public HttpTransport {
  public:
    HttpReply exchange(const HttpRequest& request) override;

    /// Whether each exchange is told on standard error, without secrets and without anything that
    /// was sent or received.
    bool verbose = false;
    HttpRecord record;  ///< of the last exchange

  private:
    std::unique_ptr<HttpTransport> transport_ = make_http_transport(&record);
};

/// "none", "the environment's" or the address, without credentials.
std::string proxy_text(const HttpProxy& proxy);

}  // namespace zr::cli
