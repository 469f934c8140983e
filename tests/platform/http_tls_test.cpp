// Exchanges over TLS: whom the transport trusts, and what it says of those it does not.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/http_cases.h"
#include "support/scoped_environment.h"
#include "support/tls_identity.h"

namespace zr::test {
namespace {

LoopbackServer::Answer always_ok() {
    return [](const ReceivedRequest&) { return reply("200 OK", "ok"); };
}

class HttpTls : public testing::Test {
  protected:
    TestAuthority authority_;
    ScopedEnvironment file_{"SSL_CERT_FILE", authority_.file()};
    ScopedEnvironment folder_{"SSL_CERT_DIR", std::nullopt};
};

TEST_F(HttpTls, ChecksEveryCertificate) {
    using namespace error_number;
    const struct {
        const char* what;
        CertificateFacts facts;
        std::int32_t number;
    } cases[] = {
        {"good", {}, 0},
        {"TLS 1.2", {.highest_tls = TLS1_2_VERSION}, 0},
        {"TLS 1.1", {.highest_tls = TLS1_1_VERSION}, kSecurityFailure},
        {"another name", {.names = "DNS:other.test"}, kCertificateOtherHost},
        {"another address", {.names = "IP:127.0.0.2"}, kCertificateOtherHost},
        {"expired", {.valid_from = -2 * kDay, .valid_to = -kDay}, kCertificateExpired},
        {"not yet valid", {.valid_from = kDay, .valid_to = 2 * kDay}, kCertificateExpired},
    };
    for (const auto& row : cases) {
        const TlsContext context = authority_.server(row.facts);
        LoopbackServer server(LoopbackServer::answering(always_ok(), context.get()));
        const PlatformError error = failure_of(post(server.url("/", "https")));
        EXPECT_EQ(error.number(), row.number) << row.what << ": " << error.description();
        EXPECT_EQ(server.requests().size(), row.number == 0 ? 1u : 0u) << row.what;
    }
}

TEST_F(HttpTls, TrustsTheAuthoritiesOfTheMomentOnly) {
    const TestAuthority stranger;
    const TlsContext context = authority_.server();
    LoopbackServer server(LoopbackServer::answering(always_ok(), context.get()));
    const auto transport = make_http_transport();
    const HttpRequest request = post(server.url("/", "https"));
    EXPECT_EQ(failure_of(*transport, request).number(), 0);
    for (const std::optional<std::string>& file :
         {std::optional(stranger.file()), std::optional<std::string>()}) {
        // Not even the session that was kept is resumed under another trust.
        const ScopedEnvironment other("SSL_CERT_FILE", file);
        EXPECT_EQ(failure_of(*transport, request).number(), error_number::kUnknownAuthority);
    }
    const ScopedEnvironment missing("SSL_CERT_FILE", authority_.file() + ".missing");
    EXPECT_EQ(failure_of(*transport, request).number(), error_number::kSecurityFailure);
    EXPECT_EQ(server.requests().size(), 1u);
}

TEST_F(HttpTls, TrustsTheAuthoritiesOfAFolder) {
    const TestAuthority stranger;
    const TlsContext context = authority_.server();
    LoopbackServer server(LoopbackServer::answering(always_ok(), context.get()));
    const ScopedEnvironment no_file("SSL_CERT_FILE", std::nullopt);
    for (const auto& [folder, number] :
         {std::pair(authority_.folder(), 0),
          std::pair(stranger.folder(), error_number::kUnknownAuthority)}) {
        const ScopedEnvironment scoped("SSL_CERT_DIR", folder);
        EXPECT_EQ(failure_of(post(server.url("/", "https"))).number(), number);
    }
}

TEST_F(HttpTls, NoSpeakerOfTlsIsASecurityFailure) {
    LoopbackServer server([](LoopbackServer&, Connection& peer) { peer.write("220 hello\r\n"); });
    EXPECT_EQ(failure_of(post(server.url("/", "https"))).number(), error_number::kSecurityFailure);
}

TEST_F(HttpTls, KeepsTheSessionAndNotTheConnection) {
    const TlsContext context = authority_.server();
    LoopbackServer server(LoopbackServer::answering(always_ok(), context.get()));
    const auto transport = make_http_transport();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(transport->exchange(post(server.url("/", "https"))).body, "ok");
        const ReceivedRequest sent = server.requests().back();
        EXPECT_EQ(sent.connection, i);
        EXPECT_EQ(sent.resumed, i != 0);
    }
    exchange(post(server.url("/", "https")));
    EXPECT_FALSE(server.requests().back().resumed) << "another runtime's session";
}

TEST_F(HttpTls, WritesNoKeysWhereTheEnvironmentAsksForThem) {
    // The library looks at the variable once, when it is started: so this test starts itself.
    if (const char* url = std::getenv("ZR_TEST_URL")) {
        const ScopedEnvironment trusted("SSL_CERT_FILE", std::getenv("ZR_TEST_AUTHORITY"));
        EXPECT_EQ(exchange(post(url)).body, "ok");
        EXPECT_STRNE(std::getenv("SSLKEYLOGFILE"), "");
        return;
    }
    const TlsContext context = authority_.server();
    LoopbackServer server(LoopbackServer::answering(always_ok(), context.get()));
    const std::string log = authority_.folder() + "/keys";
    const ScopedEnvironment asked("SSLKEYLOGFILE", log);
    const ScopedEnvironment where("ZR_TEST_URL", server.url("/", "https"));
    const ScopedEnvironment authority("ZR_TEST_AUTHORITY", authority_.file());
    const std::string program = std::filesystem::read_symlink("/proc/self/exe");
    const std::string command = program + " --gtest_filter=HttpTls.WritesNoKeys* >/dev/null 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(server.requests().size(), 1u);
    EXPECT_FALSE(std::filesystem::exists(log));
}

TEST_F(HttpTls, AConnectionThatDiesIsLostAndRaisesNoSignal) {
    const TlsContext context = authority_.server();
    LoopbackServer server([&](LoopbackServer&, Connection& peer) {
        if (peer.start_tls(context.get())) peer.wait_for_bytes();
        peer.reset_on_close();
    });
    EXPECT_EQ(failure_of(post(server.url("/", "https"), large_body())).number(),
              error_number::kConnectionLost);
}

TEST_F(HttpTls, GoesThroughATunnelThatSeesNothing) {
    const TlsContext context = authority_.server({.names = "DNS:origin.test"});
    LoopbackServer proxy([&](LoopbackServer& self, Connection& peer) {
        const auto connect = self.receive(peer);
        if (!connect) return;
        peer.write("HTTP/1.1 200 Through\r\n\r\n");
        if (!peer.start_tls(context.get())) return;
        self.receive(peer);
        peer.write(reply("200 Here", "inside"));
        peer.wait_until_closed();
    });
    HttpRequest request = post("https://origin.test/path");
    request.proxy = {HttpProxy::Mode::kNamed, proxy.host_and_port(), "", ""};
    const HttpReply got = exchange(request);
    EXPECT_EQ(got.status_text, "Here");
    EXPECT_EQ(got.body, "inside");
    ASSERT_EQ(proxy.requests().size(), 2u);
    EXPECT_EQ(proxy.requests()[0].start_line, "CONNECT origin.test:443 HTTP/1.1");
    EXPECT_EQ(proxy.requests()[1].start_line, "POST /path HTTP/1.1");
}

TEST_F(HttpTls, AProxyMaySpeakTlsItself) {
    const TlsContext context = authority_.server();
    LoopbackServer proxy(LoopbackServer::answering(always_ok(), context.get()));
    const TestAuthority stranger;
    HttpRequest request = post("http://origin.test/");
    request.proxy = {HttpProxy::Mode::kNamed, "https://" + proxy.host_and_port(), "", ""};
    EXPECT_EQ(failure_of(request).number(), 0);
    const ScopedEnvironment other("SSL_CERT_FILE", stranger.file());
    EXPECT_EQ(failure_of(request).number(), error_number::kUnknownAuthority);
}

}  // namespace
}  // namespace zr::test
