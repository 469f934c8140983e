// Who is told what: challenges of the server, proxies, and that neither hears the other's secrets.
#include <gtest/gtest.h>
#include <openssl/evp.h>

#include "platform/http_cases.h"
#include "support/scoped_environment.h"

namespace zr::test {
namespace {

using std::string_literals::operator""s;
using std::chrono_literals::operator""s;

std::string base64(const std::string& bytes) {
    std::string text((bytes.size() + 2) / 3 * 4 + 1, '\0');
    const int size = EVP_EncodeBlock(reinterpret_cast<unsigned char*>(text.data()),
                                     reinterpret_cast<const unsigned char*>(bytes.data()),
                                     static_cast<int>(bytes.size()));
    text.resize(static_cast<std::size_t>(size));
    return text;
}

std::string from_base64(const std::string& text) {
    std::string bytes(text.size(), '\0');
    EVP_DecodeBlock(reinterpret_cast<unsigned char*>(bytes.data()),
                    reinterpret_cast<const unsigned char*>(text.data()),
                    static_cast<int>(text.size()));
    return bytes;
}

std::string md5(const std::string& text) {
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned size = 0;
    EVP_Digest(text.data(), text.size(), digest, &size, EVP_md5(), nullptr);
    std::string hex;
    for (unsigned i = 0; i < size; ++i) {
        hex += "0123456789abcdef"[digest[i] >> 4];
        hex += "0123456789abcdef"[digest[i] & 15];
    }
    return hex;
}

/// The value of a quoted parameter of a Digest header.
std::string parameter(const std::string& header, const std::string& name) {
    const std::size_t start = header.find(name + "=\"");
    if (start == std::string::npos) return {};
    const std::size_t value = start + name.size() + 2;
    return header.substr(value, header.find('"', value) - value);
}

bool is_basic(const ReceivedRequest& request, const std::string& who) {
    return request.header("Authorization") == "Basic " + base64(who);
}

bool is_digest(const ReceivedRequest& request, const std::string& who) {
    const std::string header = request.header("Authorization");
    const std::string expected =
        md5(md5(who.substr(0, who.find(':')) + ":realm" + who.substr(who.find(':'))) +
            ":nonce:" + md5("POST:" + parameter(header, "uri")));
    return header.starts_with("Digest ") && parameter(header, "response") == expected;
}

// Message 2 of the handshake: signature, type, empty target name, flags, challenge.
const std::string kNtlmChallenge =
    "NTLMSSP\0\2\0\0\0\0\0\0\0\x20\0\0\0\1\2\x08\0"
    "challeng"s;

bool is_ntlm_hello(const ReceivedRequest& request) {
    return request.header("Authorization").starts_with("NTLM TlRMTVNTUAAB");
}

/// Message 3, in which the names are UTF-16.
bool is_ntlm(const ReceivedRequest& request, const std::string& who) {
    const std::string header = request.header("Authorization");
    if (!header.starts_with("NTLM TlRMTVNTUAAD")) return false;
    std::string wide;
    for (const char c : who.substr(0, who.find(':'))) wide += {c, '\0'};
    return from_base64(header.substr(5)).find(wide) != std::string::npos;
}

std::string challenge(const std::string& value, const std::string& body = "Who are you?") {
    return reply("401 Unauthorized", body, "WWW-Authenticate: " + value + "\r\n");
}

/// A server that admits whom `admits` accepts.
LoopbackServer::Answer guarded(const std::string& value,
                               bool (*admits)(const ReceivedRequest&, const std::string&)) {
    return [=](const ReceivedRequest& request) {
        if (admits(request, "user:secret")) return reply("200 OK", "got " + request.body);
        return is_ntlm_hello(request) ? challenge("NTLM " + base64(kNtlmChallenge))
                                      : challenge(value);
    };
}

HttpRequest post_as(const std::string& url, const std::string& user, const std::string& password) {
    HttpRequest request = post(url, "the body");
    request.user = user;
    request.password = password;
    return request;
}

const std::string kDigest = R"(Digest realm="realm", nonce="nonce")";

TEST(HttpAuthentication, AnswersAChallengeAndOnlyThen) {
    const struct {
        std::string challenge;
        bool (*admits)(const ReceivedRequest&, const std::string&);
    } cases[] = {
        {R"(Basic realm="realm")", is_basic},
        {kDigest, is_digest},
        {"NTLM", is_ntlm},
        {"Bearer x\r\nWWW-Authenticate: Basic realm=\"x\"\r\nWWW-Authenticate: " + kDigest,
         is_digest},
    };
    for (const auto& row : cases) {
        LoopbackServer server(LoopbackServer::answering(guarded(row.challenge, row.admits)));
        const auto transport = make_http_transport();
        for (int exchange = 0; exchange < 2; ++exchange) {
            const HttpReply got = transport->exchange(post_as(server.url(), "user", "secret"));
            EXPECT_EQ(got.status, 200) << row.challenge;
            EXPECT_EQ(got.body, "got the body") << row.challenge;
        }
        EXPECT_EQ(server.requests()[0].header("Authorization"), "") << row.challenge;
    }
}

TEST(HttpAuthentication, AReplyThatRefusesIsAReply) {
    const struct {
        const char* what;
        std::string challenge;
        std::string user;
        std::size_t requests;
    } cases[] = {
        {"no user", R"(Basic realm="realm")", "", 1},
        {"wrong password", R"(Basic realm="realm")", "user", 2},
        {"wrong digest", kDigest, "user", 2},
        {"wrong NTLM", "NTLM", "nobody", 3},
        {"a scheme that is not known", "Bearer realm=\"x\"", "user", 1},
        {"a challenge that makes no sense", "Digest", "user", 1},
    };
    for (const auto& row : cases) {
        const auto admits = row.challenge == "NTLM"    ? is_ntlm
                            : row.challenge == kDigest ? is_digest
                                                       : is_basic;
        LoopbackServer server(LoopbackServer::answering(guarded(row.challenge, admits)));
        const HttpReply got = exchange(post_as(server.url(), row.user, "wrong"));
        EXPECT_EQ(got.status, 401) << row.what;
        EXPECT_EQ(got.status_text, "Unauthorized") << row.what;
        EXPECT_EQ(got.body, "Who are you?") << row.what;
        EXPECT_EQ(server.requests().size(), row.requests) << row.what;
    }
}

TEST(HttpAuthentication, AServerThatFindsEveryAnswerStaleGetsTwo) {
    const struct {
        const char* what;
        const char* url;  // through the server as a proxy
        int status;
    } cases[] = {{"server", "", 401},
                 {"proxy", "http://origin.test/", 407},
                 {"tunnel", "https://origin.test/", 407}};
    for (const auto& row : cases) {
        LoopbackServer server(LoopbackServer::answering([&](auto&) {
            const std::string header =
                row.status == 401 ? "WWW-Authenticate: " : "Proxy-Authenticate: ";
            return reply(std::to_string(row.status) + " Stale", "?",
                         header + kDigest + ", stale=true\r\n");
        }));
        HttpRequest request = post_as(server.url(), "user", "secret");
        if (row.status == 407) {
            request = post(row.url);
            request.proxy = {HttpProxy::Mode::kNamed, server.host_and_port(), "proxy", "hush"};
        }
        // Without a bound it would go on until the time is up.
        request.timeouts = {2s, 2s, 2s, 2s};
        const HttpReply got = exchange(request);
        EXPECT_EQ(got.status, row.status) << row.what;
        EXPECT_EQ(got.status_text, "Stale") << row.what;
        EXPECT_EQ(server.requests().size(), 3u) << row.what;
    }
}

/// Asks for NTLM on every connection, then lets `inside` answer.
LoopbackServer::Handler ntlm_proxy(const LoopbackServer::Answer& inside) {
    return [inside](LoopbackServer& self, Connection& peer) {
        while (const auto request = self.receive(peer)) {
            const std::string header = request->header("Proxy-Authorization");
            const bool hello = header.starts_with("NTLM TlRMTVNTUAAB");
            peer.write(header.starts_with("NTLM TlRMTVNTUAAD")
                           ? inside(*request)
                           : reply("407 Who", "?",
                                   "Proxy-Authenticate: NTLM " +
                                       (hello ? base64(kNtlmChallenge) : "") + "\r\n"));
        }
    };
}

TEST(HttpAuthentication, AProxyMayWantToBeConvincedOnEveryConnection) {
    LoopbackServer proxy(ntlm_proxy(guarded(R"(Basic realm="realm")", is_basic)));
    HttpRequest request = post_as("http://origin.test/", "user", "secret");
    request.proxy = {HttpProxy::Mode::kNamed, proxy.host_and_port(), "proxy", "hush"};
    EXPECT_EQ(exchange(request).body, "got the body");
    EXPECT_EQ(proxy.requests().size(), 6u) << "three steps on each of two connections";
}

TEST(HttpAuthentication, ARequestThatTheServerReadIsNeverSentAgain) {
    // The server takes the request on the connection that NTLM keeps, and dies.
    for (const bool through_reset : {false, true}) {
        LoopbackServer server([through_reset](LoopbackServer& self, Connection& peer) {
            const auto hello = self.receive(peer);
            if (!hello || !is_ntlm_hello(*hello)) return peer.write(challenge("NTLM"));
            peer.write(challenge("NTLM " + base64(kNtlmChallenge)));
            self.receive(peer);
            if (through_reset) peer.reset_on_close();
        });
        const auto transport = make_http_transport();
        try {
            transport->exchange(post_as(server.url(), "user", "secret"));
            ADD_FAILURE();
        } catch (const PlatformError& error) {
            EXPECT_EQ(error.number(), error_number::kConnectionLost) << error.description();
        }
        EXPECT_EQ(server.requests().size(), 3u);
    }
}

TEST(HttpAuthentication, NothingReachesTheNextExchange) {
    LoopbackServer server(LoopbackServer::answering(guarded(R"(Basic realm="realm")", is_basic)));
    const auto transport = make_http_transport();
    HttpRequest first = post_as(server.url(), "user", "secret");
    first.proxy = {HttpProxy::Mode::kNamed, server.host_and_port(), "proxy", "hush"};
    EXPECT_EQ(transport->exchange(first).status, 200);

    HttpRequest second = post(server.url("/second"), "other");
    second.method = "GET";
    second.content_type.clear();
    EXPECT_EQ(transport->exchange(second).status, 401);
    const ReceivedRequest sent = server.requests().back();
    EXPECT_EQ(sent.start_line, "GET /second HTTP/1.1") << "no proxy, no POST";
    for (const char* header : {"Authorization", "Proxy-Authorization", "Content-Type"})
        EXPECT_EQ(sent.header(header), "") << header;
    EXPECT_EQ(sent.body, "");
}

TEST(HttpProxy, SettingsSayWhichServerHearsTheRequest) {
    LoopbackServer origin(LoopbackServer::answering([](auto&) { return reply("200 OK", "o"); }));
    LoopbackServer proxy(LoopbackServer::answering([](auto&) { return reply("200 OK", "p"); }));
    LoopbackServer other(LoopbackServer::answering([](auto&) { return reply("200 OK", "x"); }));
    using Mode = HttpProxy::Mode;
    const std::string named = proxy.host_and_port();
    const struct {
        Mode mode;
        std::string server;
        std::string http_proxy;
        std::string no_proxy;
        const char* heard_by;
    } cases[] = {
        {Mode::kDirect, "", proxy.url(), "", "o"},
        {Mode::kPreconfigured, "", proxy.url(), "", "p"},
        {Mode::kPreconfigured, "", proxy.url(), "127.0.0.1", "o"},
        {Mode::kPreconfigured, "", "", "", "o"},
        {Mode::kNamed, named, other.url(), "127.0.0.1", "p"},
        {Mode::kNamed, named, "", "*", "p"},
        {Mode::kNamed, "http://" + named, "", "", "p"},
        {Mode::kNamed, "HTTP://" + named + "/", "", "", "p"},
    };
    for (const auto& row : cases) {
        const ScopedEnvironment address("http_proxy", row.http_proxy);
        const ScopedEnvironment exceptions("no_proxy", row.no_proxy);
        HttpRequest request = post(origin.url());
        request.proxy = {row.mode, row.server, "", ""};
        EXPECT_EQ(exchange(request).body, row.heard_by)
            << static_cast<int>(row.mode) << row.server << ' ' << row.no_proxy;
    }
    EXPECT_EQ(proxy.requests()[0].start_line, "POST " + origin.url() + " HTTP/1.1");
}

TEST(HttpProxy, OneThatIsNoProxyIsRefused) {
    for (const char* server : {"", ":8080", "socks5://127.0.0.1:1", "http://", "a b:1",
                               "someone:hush@127.0.0.1:1", "http=127.0.0.1:1;https=127.0.0.1:2"}) {
        HttpRequest request = post("http://127.0.0.1:1/");
        request.proxy = {HttpProxy::Mode::kNamed, server, "", ""};
        const PlatformError error = failure_of(request);
        EXPECT_EQ(error.number(), error_number::kInvalidAddress) << server;
        EXPECT_EQ(error.description().find("hush"), std::string::npos);
    }
}

std::string proxy_challenge() {
    return reply("407 Proxy Authentication Required", "?",
                 "Proxy-Authenticate: Basic realm=\"x\"\r\n");
}

TEST(HttpProxy, HearsItsOwnCredentialsOnly) {
    LoopbackServer proxy(LoopbackServer::answering([](const ReceivedRequest& request) {
        const std::string header = request.header("Proxy-Authorization");
        return header == "Basic " + base64("proxy:hush") ? reply("200 OK", "in")
                                                         : proxy_challenge();
    }));
    HttpRequest request = post_as("http://origin.test/", "user", "secret");
    request.proxy = {HttpProxy::Mode::kNamed, proxy.host_and_port(), "proxy", "hush"};
    EXPECT_EQ(exchange(request).body, "in");
    EXPECT_EQ(proxy.requests()[0].header("Proxy-Authorization"), "") << "not before a challenge";
    request.proxy.user.clear();
    EXPECT_EQ(exchange(request).status, 407) << "the user's answer no proxy's challenge";
    for (const ReceivedRequest& sent : proxy.requests())
        EXPECT_EQ(sent.header("Authorization"), "");
}

TEST(HttpProxy, ATunnelThatIsRefusedIsAReplyWithoutText) {
    for (const std::string status : {"407 Proxy Authentication Required", "403 Not there"}) {
        LoopbackServer proxy(LoopbackServer::answering([&](auto&) {
            return reply(status, "<page/>", "Proxy-Authenticate: Basic realm=\"x\"\r\n");
        }));
        HttpRequest request = post_as("https://origin.test/path", "user", "secret");
        request.proxy = {HttpProxy::Mode::kNamed, proxy.host_and_port(), "proxy", "wrong"};
        const HttpReply got = exchange(request);
        EXPECT_EQ(std::to_string(got.status) + " " + got.status_text, status);
        EXPECT_EQ(got.body, "");
        for (const ReceivedRequest& sent : proxy.requests()) {
            EXPECT_EQ(sent.start_line, "CONNECT origin.test:443 HTTP/1.1");
            EXPECT_EQ(sent.header("Authorization"), "");
            EXPECT_EQ(sent.header("Content-Type"), "");
            EXPECT_EQ(sent.body, "");
        }
    }
}

}  // namespace
}  // namespace zr::test
