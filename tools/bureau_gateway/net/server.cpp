#include "bureau_gateway/net/server.h"

#include <boost/asio/post.hpp>
#include <list>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <utility>

#include "bureau_gateway/net/connection.h"

namespace zr::gateway {
namespace {

namespace asio = boost::asio;
using Tcp = asio::ip::tcp;
using ErrorCode = boost::system::error_code;
using std::chrono::milliseconds;

asio::ip::address loopback_address(const std::string& host) {
    ErrorCode error;
    auto address = asio::ip::make_address(host == "localhost" ? "127.0.0.1" : host, error);
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
