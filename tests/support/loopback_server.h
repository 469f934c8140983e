// A server on a loopback port that does exactly what a test tells it, byte by byte, also what no
// proper server would do. Each connection is handled on a thread of its own.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <openssl/ssl.h>
#include <poll.h>
#include <strings.h>
#include <sys/socket.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <list>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace zr::test {

struct ReceivedRequest {
    int connection = 0;      ///< 0 is the first connection that the server accepted
    bool resumed = false;    ///< the connection resumed a TLS session
    std::string start_line;  ///< "POST /path HTTP/1.1"
    std::vector<std::pair<std::string, std::string>> headers;
    std::string body;

    /// Empty when the header is missing.
    std::string header(std::string_view name) const {
        for (const auto& [key, value] : headers)
            if (strcasecmp(key.c_str(), std::string(name).c_str()) == 0) return value;
        return {};
    }
};

/// One accepted connection. Reading ends quietly when the peer or the server's end closes it.
class Connection {
  public:
    Connection(int socket, int index) : socket_(socket), index_(index) {}
    ~Connection() { close_now(); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    int index() const { return index_; }

    /// False when the peer does not accept what the server offers.
    bool start_tls(SSL_CTX* context) {
        SSL_free(tls_);
        tls_ = SSL_new(context);
        SSL_set_fd(tls_, socket_);
        return SSL_accept(tls_) == 1;
    }

    /// The next request with its whole body; nothing when the connection ends.
    std::optional<ReceivedRequest> read_request() {
        while (buffer_.find("\r\n\r\n") == std::string::npos)
            if (!read_more()) return std::nullopt;
        ReceivedRequest request = parse_head();
        const std::string length = request.header("Content-Length");
        const std::size_t size = length.empty() ? 0 : std::stoul(length);
        while (buffer_.size() < size)
            if (!read_more()) return std::nullopt;
        request.body = buffer_.substr(0, size);
        buffer_.erase(0, size);
        return request;
    }

    void write(std::string_view bytes) {
        while (!bytes.empty()) {
            const auto count = tls_ != nullptr
                                   ? SSL_write(tls_, bytes.data(), static_cast<int>(bytes.size()))
                                   : ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
            if (count <= 0) return;
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
    }

    /// Returns when the peer has begun to send.
    void wait_for_bytes() { read_more(); }

    /// Returns when the peer has closed the connection, whatever it sends until then.
    void wait_until_closed() {
        while (read_more()) buffer_.clear();
    }

    /// Returns when the peer has given up, without having read what it sent.
    void leave_unread() {
        pollfd hang_up{socket_, POLLRDHUP, 0};
        ::poll(&hang_up, 1, -1);
    }

    bool is_hung_up() {
        pollfd hang_up{socket_, POLLRDHUP, 0};
        return ::poll(&hang_up, 1, 0) != 0;
    }

    /// Says that a TLS reply without a length is complete; a close without it is a truncation.
    void finish_tls() { SSL_shutdown(tls_); }

    /// Makes the coming close a reset.
    void reset_on_close() {
        const linger at_once{1, 0};
        ::setsockopt(socket_, SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once);
    }

    /// Wakes whoever reads or writes; may be called from another thread.
    void interrupt() {
        const std::lock_guard lock(mutex_);
        if (socket_ >= 0) ::shutdown(socket_, SHUT_RDWR);
    }

    void close_now() {
        const std::lock_guard lock(mutex_);
        SSL_free(tls_);
        tls_ = nullptr;
        if (socket_ >= 0) ::close(socket_);
        socket_ = -1;
    }

  private:
    bool read_more() {
        char bytes[16384];
        const auto count = tls_ != nullptr ? SSL_read(tls_, bytes, sizeof bytes)
                                           : ::recv(socket_, bytes, sizeof bytes, 0);
        if (count <= 0) return false;
        buffer_.append(bytes, static_cast<std::size_t>(count));
        return true;
    }

    ReceivedRequest parse_head() {
        ReceivedRequest request;
        request.connection = index_;
        request.resumed = tls_ != nullptr && SSL_session_reused(tls_) == 1;
        request.start_line = take_line();
        for (std::string line = take_line(); !line.empty(); line = take_line()) {
            const std::size_t colon = line.find(':');
            const std::size_t value = line.find_first_not_of(' ', colon + 1);
            request.headers.emplace_back(line.substr(0, colon),
                                         value == std::string::npos ? "" : line.substr(value));
        }
        return request;
    }

    std::string take_line() {
        const std::size_t end = buffer_.find("\r\n");
        std::string line = buffer_.substr(0, end);
        buffer_.erase(0, end + 2);
        return line;
    }

    int socket_;
    int index_;
    SSL* tls_ = nullptr;
    std::string buffer_;
    std::mutex mutex_;
};

class LoopbackServer {
  public:
    using Handler = std::function<void(LoopbackServer&, Connection&)>;
    using Answer = std::function<std::string(const ReceivedRequest&)>;

    /// Handles every connection with `handler`; the connection is closed when that returns.
    explicit LoopbackServer(Handler handler) : handler_(std::move(handler)) {
        listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* generic = reinterpret_cast<sockaddr*>(&address);
        if (::bind(listener_, generic, size) != 0 || ::listen(listener_, 16) != 0 ||
            ::getsockname(listener_, generic, &size) != 0)
            throw std::runtime_error("no loopback server");
        port_ = ntohs(address.sin_port);
        acceptor_ = std::thread([this] { accept_all(); });
    }

    ~LoopbackServer() {
        ::shutdown(listener_, SHUT_RDWR);
        acceptor_.join();
        {
            const std::lock_guard lock(mutex_);
            for (Connection& connection : connections_) connection.interrupt();
        }
        for (std::thread& thread : threads_) thread.join();
        ::close(listener_);
    }
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    /// A handler that answers request after request while the peer keeps the connection. The
    /// connection is TLS when there is a context.
    static Handler answering(Answer answer, SSL_CTX* context = nullptr) {
        return [answer = std::move(answer), context](LoopbackServer& server, Connection& peer) {
            if (context != nullptr && !peer.start_tls(context)) return;
            while (const auto request = server.receive(peer)) peer.write(answer(*request));
        };
    }

    /// The peer's next request, which is also noted down.
    std::optional<ReceivedRequest> receive(Connection& connection) {
        auto request = connection.read_request();
        const std::lock_guard lock(mutex_);
        if (request) requests_.push_back(*request);
        return request;
    }

    int port() const { return port_; }
    std::string host_and_port() const { return "127.0.0.1:" + std::to_string(port_); }
    std::string url(std::string_view path = "/", std::string_view scheme = "http") const {
        return std::string(scheme) + "://" + host_and_port() + std::string(path);
    }

    /// What was received so far, in order.
    std::vector<ReceivedRequest> requests() const {
        const std::lock_guard lock(mutex_);
        return requests_;
    }

  private:
    void accept_all() {
        // A peer that is gone must not end the test program when TLS writes to it.
        sigset_t broken_pipe;
        sigemptyset(&broken_pipe);
        sigaddset(&broken_pipe, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &broken_pipe, nullptr);
        for (int index = 0;; ++index) {
            const int socket = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
            if (socket < 0) return;
            const std::lock_guard lock(mutex_);
            Connection& connection = connections_.emplace_back(socket, index);
            threads_.emplace_back([this, &connection] { serve(connection); });
        }
    }

    void serve(Connection& connection) {
        handler_(*this, connection);
        connection.close_now();
    }

    Handler handler_;
    int listener_ = -1;
    int port_ = 0;
    mutable std::mutex mutex_;
    std::list<Connection> connections_;
    std::list<std::thread> threads_;
    std::vector<ReceivedRequest> requests_;
    std::thread acceptor_;
};

/// A reply with its Content-Length.
inline std::string reply(std::string_view status, std::string_view body,
                         std::string_view more_headers = {}) {
    std::string text = "HTTP/1.1 ";
    text.append(status).append("\r\nContent-Length: ").append(std::to_string(body.size()));
    return text.append("\r\n").append(more_headers).append("\r\n").append(body);
}

}  // namespace zr::test
