// Servers on raw sockets that do what no server should, by name.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

#include "platform/http_cases.h"

namespace zr::test {
namespace {

using namespace std::chrono_literals;
using namespace error_number;

constexpr const char* kTooMuch =
    "The headers of the reply are larger than 65536 bytes or 256 lines";
constexpr const char* kLength =
    "The reply of the server is not valid: its length is not one number";
constexpr const char* kNotValid = "The reply of the server is not valid";

const std::string kOk = "HTTP/1.1 200 OK\r\n";
const std::string kChunked = kOk + "Transfer-Encoding: chunked\r\n\r\n2\r\nok\r\n";

/// Sends `bytes` again and again until the peer has had enough, or `megabytes` went out.
void flood(Connection& peer, const std::string& bytes, std::size_t megabytes) {
    std::string many;
    while (many.size() < 65536) many += bytes;
    for (std::size_t sent = 0; sent < megabytes << 20; sent += many.size()) peer.write(many);
}

TEST(HttpFaults, EachIsAnErrorWithItsMessageAndOnePost) {
    const auto bytes = [](std::string text) {
        return [text = std::move(text)](Connection& peer) { peer.write(text); };
    };
    const auto lengths = [&](const std::string& headers) {
        return bytes(kOk + headers + "\r\n" + "12345");
    };
    const auto endless = [](std::string begin, std::string line) {
        return [=](Connection& peer) {
            peer.write(begin);
            flood(peer, line, 8);
        };
    };
    const struct {
        const char* name;
        std::function<void(Connection&)> send;
        std::int32_t number;
        const char* description;
    } faults[] = {
        {"endless-trailers", endless(kChunked + "0\r\n", "X-Trailer: more\r\n"), kInvalidReply,
         kTooMuch},
        {"endless-trailer-line", endless(kChunked + "0\r\n", "x"), kInvalidReply, kTooMuch},
        {"endless-headers", endless(kOk, "X-Header: more\r\n"), kInvalidReply, kTooMuch},
        {"endless-header-line", endless(kOk + "X:", "x"), kInvalidReply, kTooMuch},
        {"endless-interim-replies", endless("", "HTTP/1.1 100 Go on\r\n\r\n"), kInvalidReply,
         kTooMuch},
        {"two-hundred-kilobytes-of-headers",
         bytes(kOk + "X: " + std::string(90'000, 'x') + "\r\nY: " + std::string(90'000, 'y') +
               "\r\n\r\nok"),
         kInvalidReply, kTooMuch},
        {"two-lengths", lengths("Content-Length: 5\r\nContent-Length: 3\r\n"), kInvalidReply,
         kLength},
        {"two-lengths-reversed", lengths("Content-Length: 3\r\ncontent-length: 5\r\n"),
         kInvalidReply, kLength},
        {"differing-list", lengths("Content-Length: 5, 3\r\n"), kInvalidReply, kLength},
        {"list-with-a-gap", lengths("Content-Length: 5,,5\r\n"), kInvalidReply, kLength},
        {"length-with-letters", lengths("Content-Length: 3abc\r\n"), kInvalidReply, kLength},
        {"length-with-two-numbers", lengths("Content-Length: 3 5\r\n"), kInvalidReply, kLength},
        {"length-over-63-bits", lengths("Content-Length: 9223372036854775808\r\n"), kInvalidReply,
         kLength},
        {"length-over-64-bits", lengths("Content-Length: 18446744073709551621\r\n"), kInvalidReply,
         kLength},
        {"length-with-a-blank-name", lengths("Content-Length : 3\r\n"), kInvalidReply, kLength},
        {"negative-length", lengths("Content-Length: -5\r\n"), kInvalidReply, kNotValid},
        {"chunk-over-64-bits",
         bytes(kOk + "Transfer-Encoding: chunked\r\n\r\n10000000000000002\r\nok\r\n0\r\n\r\n"),
         kInvalidReply, kNotValid},
        {"chunk-over-63-bits",
         bytes(kOk + "Transfer-Encoding: chunked\r\n\r\nffffffffffffffff\r\nok\r\n0\r\n\r\n"),
         kInvalidReply, kNotValid},
        {"status-of-two-digits", bytes("HTTP/1.1 20 OK\r\nContent-Length: 2\r\n\r\nok"),
         kInvalidReply, kNotValid},
    };
    for (const auto& fault : faults) {
        LoopbackServer server([&fault](LoopbackServer& self, Connection& peer) {
            self.receive(peer);
            fault.send(peer);
        });
        const PlatformError error = failure_of(post(server.url()));
        EXPECT_EQ(error.number(), fault.number) << fault.name;
        EXPECT_EQ(error.description(), fault.description) << fault.name;
        EXPECT_EQ(server.requests().size(), 1u) << fault.name;
    }
}

TEST(HttpFaults, LengthsThatAgreeAreOne) {
    for (const std::string headers :
         {"Content-Length: 2\r\nContent-Length: 2\r\n", "Content-Length: 2, 2\r\n",
          "Content-Length:2 \r\n", "CONTENT-LENGTH: 002\r\n"}) {
        LoopbackServer server([&](LoopbackServer& self, Connection& peer) {
            self.receive(peer);
            peer.write(kOk + headers + "\r\nok");
        });
        EXPECT_EQ(exchange(post(server.url())).body, "ok") << headers;
    }
}

TEST(HttpFaults, AProxysHeadersAreBoundedToo) {
    LoopbackServer proxy([](LoopbackServer& self, Connection& peer) {
        self.receive(peer);
        peer.write(kOk);
        flood(peer, self.requests().size() == 1 ? "X: more\r\n" : "x", 8);
    });
    HttpRequest request = post("https://origin.test/");
    request.proxy = {HttpProxy::Mode::kNamed, proxy.host_and_port(), "", ""};
    for (const char* what : {"lines", "one line"})
        EXPECT_EQ(failure_of(request).description(), kTooMuch) << what;
}

TEST(HttpFaults, WhatFollowsAReplyIsNeverRead) {
    const std::string other = reply("200 OK", "another applicant's");
    const struct {
        const char* name;
        std::chrono::milliseconds pause;
        std::string stray;
    } faults[] = {
        {"reply-and-another", 0ms, other},
        {"another-a-little-later", 20ms, other},
        {"408-on-an-idle-connection", 20ms, reply("408 Too slow", "idle", "Connection: close\r\n")},
    };
    for (const auto& fault : faults) {
        for (const bool challenges : {false, true}) {
            LoopbackServer server([&](LoopbackServer& self, Connection& peer) {
                while (const auto request = self.receive(peer)) {
                    const bool known = !challenges || !request->header("Authorization").empty();
                    const std::string own =
                        known ? reply("200 OK", request->body)
                              : reply("401 Who", "?", "WWW-Authenticate: Basic realm=\"x\"\r\n");
                    if (fault.pause == 0ms) {
                        peer.write(own + fault.stray);
                        continue;
                    }
                    peer.write(own);
                    std::this_thread::sleep_for(fault.pause);
                    peer.write(fault.stray);
                }
            });
            const auto transport = make_http_transport();
            for (const char* applicant : {"one", "two", "three"}) {
                HttpRequest request = post(server.url(), applicant);
                request.user = "user";
                EXPECT_EQ(transport->exchange(request).body, applicant) << fault.name;
                std::this_thread::sleep_for(2 * fault.pause);
            }
            int connection = 0;
            for (const ReceivedRequest& sent : server.requests())
                EXPECT_EQ(sent.connection, connection++) << fault.name << " one request each";
            EXPECT_EQ(connection, challenges ? 6 : 3) << fault.name;
        }
    }
}

TEST(HttpFaults, AConnectionEndsWithItsExchange) {
    std::atomic<int> open = 0;
    LoopbackServer server([&open](LoopbackServer& self, Connection& peer) {
        ++open;
        self.receive(peer);
        peer.write(reply("200 OK", "ok"));
        peer.wait_until_closed();
        --open;
    });
    const auto transport = make_http_transport();
    EXPECT_EQ(transport->exchange(post(server.url())).body, "ok");
    for (int i = 0; i < 500 && open != 0; ++i) std::this_thread::sleep_for(10ms);
    EXPECT_EQ(open, 0) << "and not with the transport";
}

TEST(HttpFaults, AByteAtATimeHoldsACallerForABoundedTime) {
    const std::string headers = kOk + "Content-Length: 100000\r\n";
    for (const std::string& drip : {headers + "\r\n", headers + "X: 1"}) {
        LoopbackServer server([&drip](LoopbackServer& self, Connection& peer) {
            self.receive(peer);
            peer.write(drip);
            while (!peer.is_hung_up()) {
                peer.write(drip.ends_with("1") ? "\r\nX: 1" : "x");
                std::this_thread::sleep_for(5ms);
            }
        });
        HttpRequest request = post(server.url());
        request.timeouts = {100ms, 100ms, 100ms, 100ms};
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(failure_of(request).number(), kTimeout);
        EXPECT_GE(std::chrono::steady_clock::now() - start, 700ms) << "twice the four limits";
    }
}

}  // namespace
}  // namespace zr::test
