#include "bureau_gateway/net/connection.h"

#include <boost/asio/post.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <utility>

namespace zr::gateway {
namespace {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
using Tcp = asio::ip::tcp;
using std::chrono::milliseconds;

constexpr std::size_t kPiece = std::size_t{64} * 1024;
constexpr milliseconds kFarewell{2'000};

/// The status that a request deserves which could not be read; none when the client has gone.
std::optional<int> status_of(const boost::system::error_code& error) {
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

void fill(HttpExchange& exchange, http::request<http::string_body>& request) {
    const auto text = [](auto view) { return std::string(view.data(), view.size()); };
    exchange.method = text(request.method_string());
    exchange.path = text(request.target());
    exchange.content_type = text(request[http::field::content_type]);
    exchange.authorization = text(request[http::field::authorization]);
    exchange.keep_alive = request.keep_alive();
    exchange.body = std::move(request.body());
}

}  // namespace

asio::ssl::context TlsContexts::make(const Authority& authority, CertificateKind kind) {
    asio::ssl::context context(asio::ssl::context::tls_server);
    context.set_options(asio::ssl::context::no_tlsv1 | asio::ssl::context::no_tlsv1_1);
    const Identity identity = authority.issue(kind);
    context.use_certificate_chain(asio::buffer(identity.certificate));
    context.use_private_key(asio::buffer(identity.key), asio::ssl::context::pem);
    return context;
}

void Connection::serve(Tcp::socket socket) {
    ErrorCode ignored;
    socket.set_option(Tcp::no_delay(true), ignored);
    auto& tls = shared_.tls.get(certificate_for_this_connection());
    stream_.emplace(beast::tcp_stream(std::move(socket)), tls);
    if (before_handshake() && handshake()) {
        while (serve_exchange()) {
        }
    }
    lowest().close();
}

void Connection::abort() {
    asio::post(context_, [this] {
        if (stream_) {
            lowest().close();
        }
    });
}

/// Starts an operation and runs the context until it has ended.
template <class Start>
Connection::ErrorCode Connection::await(milliseconds limit, Start start) {
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

CertificateKind Connection::certificate_for_this_connection() {
    if (shared_.faults.take(FaultKind::kCertHost)) {
        return CertificateKind::kHost;
    }
    if (shared_.faults.take(FaultKind::kCertExpired)) {
        return CertificateKind::kExpired;
    }
    return shared_.faults.take(FaultKind::kCertUnknown) ? CertificateKind::kUnknown
                                                        : CertificateKind::kGood;
}

bool Connection::before_handshake() {
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

bool Connection::handshake() {
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
bool Connection::serve_exchange() {
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

Connection::ErrorCode Connection::write(std::string_view bytes) {
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

bool Connection::take(const SendBytes& step) { return !write(step.bytes); }
bool Connection::take(const SendRepeated& step) {
    for (std::uint64_t i = 0; i < step.times; ++i) {
        if (write(step.piece)) {
            return false;
        }
    }
    return true;
}
bool Connection::take(const Wait& step) { return shared_.stop.wait(step.time); }
bool Connection::take(const Drop&) {
    lowest().close();
    return false;
}

bool Connection::deliver(const Delivery& delivery) {
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

}  // namespace zr::gateway
