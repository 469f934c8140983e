#include "bureau_gateway/net/server.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/ssl.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <condition_variable>
#include <list>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <utility>

namespace zr::gateway {
namespace {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
using Tcp = asio::ip::tcp;
using ErrorCode = boost::system::error_code;
using std::chrono::milliseconds;

constexpr std::size_t kPiece = 64 * 1024;
constexpr milliseconds kFarewell{2'000};

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
    bool wait(milliseconds time) const {
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

    asio::ssl::context& get(CertificateKind kind) {
        return contexts_[static_cast<std::size_t>(kind)];
    }

  private:
    static asio::ssl::context make(const Authority& authority, CertificateKind kind) {
        asio::ssl::context context(asio::ssl::context::tls_server);
        context.set_options(asio::ssl::context::no_tlsv1 | asio::ssl::context::no_tlsv1_1);
        const Identity identity = authority.issue(kind);
        context.use_certificate_chain(asio::buffer(identity.certificate));
        context.use_private_key(asio::buffer(identity.key), asio::ssl::context::pem);
        return context;
    }
    std::array<asio::ssl::context, 4> contexts_;
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

    asio::io_context& context() { return context_; }

    void serve(Tcp::socket socket) {
        socket.set_option(Tcp::no_delay(true), ignored_);
        auto& tls = shared_.tls.get(certificate_for_this_connection());
        stream_.emplace(beast::tcp_stream(std::move(socket)), tls);
        if (before_handshake() && handshake()) {
            while (serve_exchange()) {
            }
        }
        lowest().close();
    }

    /// Breaks the connection off from another thread.
    void abort() {
        asio::post(context_, [this] {
            if (stream_) {
                lowest().close();
            }
        });
    }

  private:
    using Stream = asio::ssl::stream<beast::tcp_stream>;

    beast::tcp_stream& lowest() { return stream_->next_layer(); }

    /// Starts an operation and runs the context until it has ended.
    template <class Start>
    ErrorCode await(milliseconds limit, Start start) {
        if (shared_.stop.raised()) {
            return asio::error::operation_aborted;
        }
        ErrorCode result = asio::error::operation_aborted;
        lowest().expires_after(limit);
        start([&](ErrorCode error, auto&&...) { result = error; });
        context_.restart();
        context_.run();
        return result;
    }

    CertificateKind certificate_for_this_connection() {
        if (shared_.faults.take(FaultKind::kCertHost)) {
            return CertificateKind::kHost;
        }
        if (shared_.faults.take(FaultKind::kCertExpired)) {
            return CertificateKind::kExpired;
        }
        return shared_.faults.take(FaultKind::kCertUnknown) ? CertificateKind::kUnknown
                                                            : CertificateKind::kGood;
    }

    bool before_handshake() {
        if (shared_.faults.take(FaultKind::kDropConnect)) {
            return false;
        }
        if (const auto delay = shared_.faults.take(FaultKind::kDelayTls);
            delay && !shared_.stop.wait(milliseconds(delay->number))) {
            return false;
        }
        if (!shared_.faults.take(FaultKind::kNotTls)) {
            return true;
        }
        static constexpr std::string_view kPlain = "220 this is no TLS server\r\n";
        await(shared_.limits.transfer, [&](auto done) {
            asio::async_write(lowest(), asio::buffer(kPlain.data(), kPlain.size()), done);
        });
        return false;
    }

    bool handshake() {
        const ErrorCode error = await(shared_.limits.handshake, [&](auto done) {
            stream_->async_handshake(asio::ssl::stream_base::server, done);
        });
        if (error) {
            return false;
        }
        ++shared_.counts.handshakes;
        if (SSL_session_reused(stream_->native_handle()) != 0) {
            ++shared_.counts.resumed_handshakes;
        }
        return true;
    }

    /// Reads one request and answers it; false when the connection has ended.
    bool serve_exchange() {
        http::request_parser<http::string_body> parser;
        parser.header_limit(static_cast<std::uint32_t>(shared_.limits.header_bytes));
        parser.body_limit(shared_.limits.body_bytes);
        ErrorCode error = await(shared_.limits.idle, [&](auto done) {
            http::async_read_header(*stream_, buffer_, parser, done);
        });
        if (!error && beast::iequals(parser.get()[http::field::expect], "100-continue")) {
            error = write("HTTP/1.1 100 Continue\r\n\r\n");
        }
        if (!error && !parser.is_done()) {
            error = await(shared_.limits.transfer,
                          [&](auto done) { http::async_read(*stream_, buffer_, parser, done); });
        }
        HttpExchange exchange;
        if (error) {
            exchange.refused_status = status_of(error);
            exchange.keep_alive = false;
            if (!exchange.refused_status) {
                return false;
            }
        } else {
            fill(exchange, parser.get());
        }
        ++shared_.counts.requests;
        return deliver(shared_.handler(exchange));
    }

    /// The status that a request deserves which could not be read; none when the client has gone.
    static std::optional<int> status_of(const ErrorCode& error) {
        if (error == http::error::body_limit) {
            return 413;
        }
        if (error == http::error::header_limit) {
            return 431;
        }
        const bool gone = error == http::error::end_of_stream ||
                          error == http::error::partial_message ||
                          error.category() != make_error_code(http::error::bad_method).category();
        return gone ? std::nullopt : std::optional<int>(400);
    }

    static void fill(HttpExchange& exchange, http::request<http::string_body>& request) {
        const auto text = [](auto view) { return std::string(view.data(), view.size()); };
        exchange.method = text(request.method_string());
        exchange.path = text(request.target());
        exchange.content_type = text(request[http::field::content_type]);
        exchange.authorization = text(request[http::field::authorization]);
        exchange.keep_alive = request.keep_alive();
        exchange.body = std::move(request.body());
    }

    ErrorCode write(std::string_view bytes) {
        ErrorCode error;
        while (!error && !bytes.empty()) {
            const std::string_view piece = bytes.substr(0, kPiece);
            error = await(shared_.limits.transfer, [&](auto done) {
                asio::async_write(*stream_, asio::buffer(piece.data(), piece.size()), done);
            });
            bytes.remove_prefix(piece.size());
        }
        return error;
    }

    bool take(const SendBytes& step) { return !write(step.bytes); }
    bool take(const SendRepeated& step) {
        for (std::uint64_t i = 0; i < step.times; ++i) {
            if (write(step.piece)) {
                return false;
            }
        }
        return true;
    }
    bool take(const Wait& step) { return shared_.stop.wait(step.time); }
    bool take(const Drop&) {
        lowest().close();
        return false;
    }

    bool deliver(const Delivery& delivery) {
        for (const Step& step : delivery.steps) {
            if (!std::visit([&](const auto& each) { return take(each); }, step)) {
                return false;
            }
        }
        if (!delivery.keep_alive) {
            await(kFarewell, [&](auto done) { stream_->async_shutdown(done); });
        }
        return delivery.keep_alive;
    }

    Shared& shared_;
    asio::io_context context_{1};
    std::optional<Stream> stream_;
    beast::flat_buffer buffer_;
    ErrorCode ignored_;
};

asio::ip::address loopback_address(const std::string& host) {
    ErrorCode error;
    const auto address = asio::ip::make_address(host == "localhost" ? "127.0.0.1" : host, error);
    if (error || !address.is_loopback()) {
        throw std::invalid_argument("The host must be a loopback address, such as 127.0.0.1.");
    }
    return address;
}

}  // namespace

class Server::Impl {
  public:
    Impl(const Settings& settings, const Authority& authority, FaultBoard& faults,
         ExchangeHandler handler)
        : shared_{settings.limits, TlsContexts(authority), faults, std::move(handler), {}, {}} {
        listen({loopback_address(settings.host), settings.port});
        thread_ = std::thread([this] { accept_until_stopped(); });
    }

    ~Impl() { stop(); }
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    const std::string& address() const { return address_; }

    Counts counts() const {
        const AtomicCounts& counts = shared_.counts;
        return {counts.connections, counts.handshakes, counts.resumed_handshakes, counts.requests};
    }

    void stop() {
        {
            const std::lock_guard lock(mutex_);
            shared_.stop.raise();
            slot_freed_.notify_all();
        }
        asio::post(context_, [this] { acceptor_.close(ignored_); });
        if (thread_.joinable()) {
            thread_.join();
        }
        acceptor_.close(ignored_);
        std::list<Served> connections;
        {
            const std::lock_guard lock(mutex_);
            connections.swap(connections_);
        }
        for (Served& served : connections) {
            served.connection.abort();
        }
        for (Served& served : connections) {
            served.thread.join();
        }
    }

  private:
    struct Served {
        explicit Served(Shared& shared) : connection(shared) {}
        Connection connection;
        std::thread thread;
        bool ended = false;  ///< guarded by the server's mutex
    };

    void listen(const Tcp::endpoint& endpoint) {
        try {
            acceptor_.open(endpoint.protocol());
            acceptor_.set_option(asio::socket_base::reuse_address(true));
            acceptor_.bind(endpoint);
            acceptor_.listen();
        } catch (const boost::system::system_error& error) {
            throw std::runtime_error("Port " + std::to_string(endpoint.port()) +
                                     " cannot be listened at: " + error.code().message() + ".");
        }
        const auto bound = acceptor_.local_endpoint();
        const std::string host = bound.address().to_string();
        address_ = "https://" + (bound.address().is_v6() ? "[" + host + "]" : host) + ":" +
                   std::to_string(bound.port());
    }

    void accept_until_stopped() {
        while (wait_for_slot()) {
            if (wait_for_client() && delay_accept()) {
                accept_one();
            }
        }
    }

    /// Waits until somebody wants to connect; false when that failed, after a little while.
    bool wait_for_client() {
        ErrorCode error = asio::error::operation_aborted;
        acceptor_.async_wait(Tcp::acceptor::wait_read, [&](ErrorCode result) { error = result; });
        context_.restart();
        context_.run();
        if (error) {
            shared_.stop.wait(milliseconds(10));
        }
        return !error;
    }

    bool delay_accept() {
        const auto delay = shared_.faults.take(FaultKind::kDelayAccept);
        return !delay || shared_.stop.wait(milliseconds(delay->number));
    }

    /// Forgets the connections that have ended and waits until there is room for one more.
    bool wait_for_slot() {
        std::unique_lock lock(mutex_);
        slot_freed_.wait(lock, [&] {
            connections_.remove_if([](Served& served) {
                if (served.ended && served.thread.joinable()) {
                    served.thread.join();
                    return true;
                }
                return false;
            });
            return shared_.stop.raised() || connections_.size() < shared_.limits.connections;
        });
        return !shared_.stop.raised();
    }

    void accept_one() {
        std::list<Served> fresh;
        Served& served = fresh.emplace_back(shared_);
        ErrorCode error = asio::error::operation_aborted;
        Tcp::socket socket(served.connection.context());
        acceptor_.async_accept(socket, [&](ErrorCode result) { error = result; });
        context_.restart();
        context_.run();
        if (error) {
            // Out of descriptors, or the client has already gone: try again a little later.
            shared_.stop.wait(milliseconds(10));
            return;
        }
        ++shared_.counts.connections;
        const std::lock_guard lock(mutex_);
        connections_.splice(connections_.end(), fresh);
        served.thread = std::thread([this, &served, accepted = std::move(socket)]() mutable {
            serve(served, std::move(accepted));
        });
    }

    void serve(Served& served, Tcp::socket socket) {
        try {
            served.connection.serve(std::move(socket));
        } catch (const std::exception&) {
            // The client sees a lost connection, which is what happened.
        }
        const std::lock_guard lock(mutex_);
        served.ended = true;
        slot_freed_.notify_all();
    }

    Shared shared_;
    asio::io_context context_{1};
    Tcp::acceptor acceptor_{context_};
    std::string address_;
    std::mutex mutex_;
    std::condition_variable slot_freed_;
    std::list<Served> connections_;
    std::thread thread_;
    ErrorCode ignored_;
};

Server::Server(const Settings& settings, const Authority& authority, FaultBoard& faults,
               ExchangeHandler handler)
    : impl_(std::make_unique<Impl>(settings, authority, faults, std::move(handler))) {}

Server::~Server() = default;

const std::string& Server::address() const { return impl_->address(); }

Counts Server::counts() const { return impl_->counts(); }

void Server::stop() { impl_->stop(); }

}  // namespace zr::gateway
