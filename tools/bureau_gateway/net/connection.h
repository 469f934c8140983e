// One connection's life, from the TLS handshake to the last exchange. Private to the server: with
// its two source files it is all that names Boost.Asio and Boost.Beast.
#pragma once

#include <array>
#include <atomic>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/ssl.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string_view>

#include "bureau_gateway/crypto.h"
#include "bureau_gateway/faults.h"
#include "bureau_gateway/net/exchange.h"
#include "bureau_gateway/settings.h"

namespace zr::gateway {

/// Tells every waiting thread that the server ends.
class StopSignal {
  public:
    void raise() {
        const std::lock_guard lock(mutex_);
        raised_ = true;
        changed_.notify_all();
    }
    bool raised() const {
        const std::lock_guard lock(mutex_);
        return raised_;
    }
    /// Waits; false when the server ends first.
    bool wait(std::chrono::milliseconds time) const {
        std::unique_lock lock(mutex_);
        return !changed_.wait_for(lock, time, [&] { return raised_; });
    }

  private:
    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    bool raised_ = false;
};

struct AtomicCounts {
    std::atomic<std::uint64_t> connections{0};
    std::atomic<std::uint64_t> handshakes{0};
    std::atomic<std::uint64_t> resumed_handshakes{0};
    std::atomic<std::uint64_t> requests{0};
};

/// One TLS context a kind of certificate.
class TlsContexts {
  public:
    explicit TlsContexts(const Authority& authority)
        : contexts_{make(authority, CertificateKind::kGood),
                    make(authority, CertificateKind::kHost),
                    make(authority, CertificateKind::kExpired),
                    make(authority, CertificateKind::kUnknown)} {}

    boost::asio::ssl::context& get(CertificateKind kind) {
        return contexts_[static_cast<std::size_t>(kind)];
    }

  private:
    static boost::asio::ssl::context make(const Authority& authority, CertificateKind kind);

    std::array<boost::asio::ssl::context, 4> contexts_;
};

/// What all connections share.
struct Shared {
    const Limits limits;
    TlsContexts tls;
    FaultBoard& faults;
    ExchangeHandler handler;
    StopSignal stop;
    AtomicCounts counts;
};

/// One connection, served by one thread. Every operation is asynchronous underneath, on a context
/// of the connection's own, so that it can time out and can be broken off by `abort`.
class Connection {
  public:
    explicit Connection(Shared& shared) : shared_(shared) {}

    boost::asio::io_context& context() { return context_; }

    /// Serves the connection until it ends; the calling thread is the connection's.
    void serve(boost::asio::ip::tcp::socket socket);

    /// Breaks the connection off from another thread.
    void abort();

  private:
    using ErrorCode = boost::system::error_code;
    using Stream = boost::asio::ssl::stream<boost::beast::tcp_stream>;

    boost::beast::tcp_stream& lowest() { return stream_->next_layer(); }

    template <class Start>
    ErrorCode await(std::chrono::milliseconds limit, Start start);

    CertificateKind certificate_for_this_connection();
    bool before_handshake();
    bool handshake();
    bool serve_exchange();
    ErrorCode write(std::string_view bytes);
    bool take(const SendBytes& step);
    bool take(const SendRepeated& step);
    bool take(const Wait& step);
    bool take(const Drop& step);
    bool deliver(const Delivery& delivery);

    Shared& shared_;
    boost::asio::io_context context_{1};
    std::optional<Stream> stream_;
    boost::beast::flat_buffer buffer_;
};

}  // namespace zr::gateway
