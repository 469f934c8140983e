// The HTTPS server: connections, TLS, and HTTP messages as bytes.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "bureau_gateway/crypto.h"
#include "bureau_gateway/faults.h"
#include "bureau_gateway/net/exchange.h"
#include "bureau_gateway/settings.h"

namespace zr::gateway {

/// What the server has done since it was started.
struct Counts {
    std::uint64_t connections = 0;         ///< TCP connections accepted
    std::uint64_t handshakes = 0;          ///< TLS handshakes completed, resumed ones included
    std::uint64_t resumed_handshakes = 0;  ///< those that took up an earlier session
    std::uint64_t requests = 0;            ///< requests read whole
};

/// Listens from construction to `stop`. One thread a connection, up to `Limits::connections`.
class Server {
  public:
    /// Throws std::invalid_argument for a host that is no loopback address and std::runtime_error
    /// when the port cannot be had. `faults` outlives the server.
    Server(const Settings& settings, const Authority& authority, FaultBoard& faults,
           ExchangeHandler handler);
    ~Server();

    /// "https://127.0.0.1:PORT".
    const std::string& address() const;

    Counts counts() const;

    /// Ends every connection and waits for their threads. May be called more than once.
    void stop();

  private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace zr::gateway
