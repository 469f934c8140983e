// The server's own challenge, below the message: Basic or Digest.
#pragma once

#include <string>
#include <string_view>

#include "bureau_gateway/settings.h"

namespace zr::gateway {

/// Checks the Authorization header of requests against one user and password.
class HttpGuard {
  public:
    HttpGuard(HttpAuth auth, std::string user, std::string password);

    /// True when the header answers the challenge, or when there is no challenge.
    bool admits(std::string_view method, std::string_view authorization) const;

    /// The WWW-Authenticate header's value; empty when there is no challenge.
    std::string challenge() const;

  private:
    HttpAuth auth_;
    std::string user_;
    std::string password_;
    std::string nonce_;  ///< one for the life of the server, so that no state is kept a client
};

}  // namespace zr::gateway
