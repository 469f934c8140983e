// Whoever reads memory that was given back finds no password: every block that the component
// releases in the course of an exchange is looked through.

#include <gtest/gtest.h>
#include <malloc.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <string_view>

#include "support/loopback_server.h"
#include "zrcreditbureau/vedaxml_services.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace {

// What a secret begins with. Some fit into a std::string itself, some do not.
constexpr std::array<std::string_view, 2> kBeginnings{"Canary-", "A canary of a length that "};

thread_local bool watched = false;
thread_local int found = 0;

void* allocate(std::size_t size) {
    void* const block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) throw std::bad_alloc();
    // What others have left there is not the component's.
    if (watched) std::memset(block, 0, malloc_usable_size(block));
    return block;
}

void release(void* block) {
    if (watched && block != nullptr) {
        const std::string_view left(static_cast<char*>(block), malloc_usable_size(block));
        for (const std::string_view beginning : kBeginnings)
            found += left.find(beginning) != std::string_view::npos ? 1 : 0;
    }
    std::free(block);
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { release(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { release(block); }

namespace zr::test {
namespace {

/// The blocks with a secret in them that `act` gives back.
template <class Act>
int left_by(Act act) {
    found = 0;
    watched = true;
    act();
    watched = false;
    return found;
}

TEST(Secrets, ThatAreLeftInMemoryAreFound) {
    for (const std::string_view beginning : kBeginnings) {
        EXPECT_EQ(
            left_by([&] { const std::vector<char> block(beginning.begin(), beginning.end()); }), 1);
    }
}

/// What the other end does with an enquiry, by the number of the request.
struct Exchange {
    const char* name;
    std::string (*answer)(const ReceivedRequest&);
    bool proxied;
    std::size_t requests;  ///< how often it is asked
};

std::string asked(const ReceivedRequest& request, std::string_view header, std::string_view ask) {
    return request.header(header).empty() ? reply("401 Who", "", ask)
                                          : reply("200 OK", "<BCAmessage/>");
}

const Exchange kExchanges[] = {
    {"answered", [](const ReceivedRequest&) { return reply("200 OK", "<BCAmessage/>"); }, false, 1},
    {"asked for the user",
     [](const ReceivedRequest& request) {
         return asked(request, "Authorization", "WWW-Authenticate: Basic realm=\"r\"\r\n");
     },
     false, 2},
    {"asked for the user's digest",
     [](const ReceivedRequest& request) {
         return asked(request, "Authorization",
                      "WWW-Authenticate: Digest realm=\"r\", nonce=\"n\"\r\n");
     },
     false, 2},
    {"asked for the proxy's user",
     [](const ReceivedRequest& request) {
         return request.header("Proxy-Authorization").empty()
                    ? reply("407 Who", "", "Proxy-Authenticate: Basic realm=\"r\"\r\n")
                    : reply("200 OK", "<BCAmessage/>");
     },
     true, 2},
    {"refused", [](const ReceivedRequest&) { return reply("500 Broken", "<html/>"); }, false, 1},
    {"misunderstood", [](const ReceivedRequest&) { return std::string("What?\r\n"); }, false, 1},
};

/// What a lender does from the start to the end.
void enquire(const char* country, const LoopbackServer& server, bool proxied,
             std::string_view secret) {
    ZRCreditBureau bureau;
    bureau.Initialise(country);
    const auto fill = [&](auto& service) {
        service.UserId("user");
        service.ProxyUserName("proxy");
        service.RequestURLTest(proxied ? "http://bureau.invalid/" : server.url());
        service.ProxyServer(proxied ? server.host_and_port() : "");
        for (const std::string_view value : {secret, std::string_view("replaced"), secret}) {
            service.UserPassword(value);
            service.ProxyPassword(value);
        }
    };
    auto request = bureau.CreateRequest();
    if (std::string_view(country) == "AU") {
        auto& service = dynamic_cast<ServiceVedaXMLAU&>(bureau.Services().Item("VedaXMLAU"));
        fill(service);
        service.SubscriberSecurityCode(secret);
        request->ServiceName("VedaXMLAU");
        request->ProductId("consumer-enquiry");
    } else {
        fill(dynamic_cast<ServiceVedaXMLNZ&>(bureau.Services().Item("VedaXMLNZ")));
        request->ServiceName("VedaXMLNZ");
        request->ProductId("enquiry_individual");
    }
    request->StreetName("High");
    request->Suburb("Kew");
    bureau.ExecuteCreditEnquiry(*request);
}

TEST(Secrets, AreWipedWhereverTheyStood) {
    const std::string block = "A canary of a length that takes a block of its own, <&'\u00E9\">";
    const std::string long_document = block + std::string(20'000, 'x') + block;
    for (const Exchange& exchange : kExchanges) {
        for (const char* country : {"AU", "NZ"}) {
            for (const std::string_view secret :
                 {std::string_view("Canary-<&>"), std::string_view(block),
                  std::string_view(long_document)}) {
                SCOPED_TRACE(std::string(exchange.name) + ", " + country);
                LoopbackServer server(LoopbackServer::answering(exchange.answer));
                EXPECT_EQ(left_by([&] { enquire(country, server, exchange.proxied, secret); }), 0);
                const auto received = server.requests();
                ASSERT_EQ(received.size(), exchange.requests);
                EXPECT_NE(received.front().body.find(secret.substr(0, 7)), std::string::npos);
            }
        }
    }
}

}  // namespace
}  // namespace zr::test
