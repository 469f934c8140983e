// The server-side HTTP request: one exchange, checked and decoded, or a platform error.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

namespace zr {

/// The proxy of an exchange.
struct HttpProxy {
    enum class Mode {
        kDirect,         ///< no proxy, whatever the machine is set up with
        kPreconfigured,  ///< the environment's https_proxy, http_proxy and no_proxy
        kNamed,          ///< `server`
    };
    Mode mode = Mode::kDirect;
    std::string server;    ///< "host:port", with or without a scheme
    std::string user;      ///< credentials are given to the proxy only when this is not empty
    std::string password;  ///< never sent to the server
};

/// Each phase of an exchange has a limit of its own; send and receive count the time without
/// progress. The whole exchange ends after twice the four together.
struct HttpTimeouts {
    std::chrono::milliseconds resolve{30'000};
    std::chrono::milliseconds connect{30'000};
    std::chrono::milliseconds send{30'000};
    std::chrono::milliseconds receive{30'000};
};

/// What an exchange was like, without anything that it carried; as far as it came.
struct HttpRecord {
    std::string peer;                      ///< whom the connection was with, the server or a proxy
    std::string tls;                       ///< version and cipher; empty without
    std::string subject;                   ///< whom the certificate is for, likewise
    std::string issuer;                    ///< the authority
    std::string expires;                   ///< "Nov 23 06:25:15 2026 GMT"
    std::string date;                      ///< the reply's Date header
    std::chrono::microseconds resolved{};  ///< when the name was, from the start on; 0 where never
    std::chrono::microseconds connected{};
    std::chrono::microseconds secured{};
    std::chrono::microseconds answered{};  ///< the reply's first byte
    std::chrono::microseconds ended{};
};

struct HttpRequest {
    std::string method = "POST";
    std::string url;           ///< https, or http where the host says so; no other scheme
    std::string user;          ///< answers the server's challenge; never sent to a proxy
    std::string password;      ///< see `user`
    std::string content_type;  ///< value of the Content-Type header; none when empty
    std::string body;
    HttpProxy proxy;
    HttpTimeouts timeouts;
    std::size_t max_reply_bytes = std::size_t{64} << 20;
};

struct HttpReply {
    int status = 0;           ///< 200, 401, ...; a redirect is not followed
    std::string status_text;  ///< the reply's own reason phrase, may be empty
    std::string body;         ///< decoded to UTF-8 by byte-order mark, charset, else UTF-8
};

/// What carries a request to a server and back. Every exchange has a connection of its own; only
/// TLS sessions, and the authorities that were read, are used again by the next exchange of the
/// same transport. One thread at a time.
class HttpTransport {
  public:
    virtual ~HttpTransport() = default;

    /// Carries out one exchange. Throws PlatformError with the platform's number for every failure
    /// to get a reply; a reply of any status is a reply.
    virtual HttpReply exchange(const HttpRequest& request) = 0;
};

/// The platform's own transport. Each exchange fills the record, where there is one, also when it
/// fails.
std::unique_ptr<HttpTransport> make_http_transport(HttpRecord* record = nullptr);

}  // namespace zr
