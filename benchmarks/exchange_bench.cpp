// Where an enquiry spends its time: the whole of it over HTTPS against the bureau stand-in in this
// process, with a resumed and with a full handshake, and its own work (composing the request,
// translating the reply) alone.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "bureau_gateway/gateway.h"
#include "zrcreditbureau/vedaxml_services.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::bench {
namespace {

/// Answers every request with one reply, at once.
class CannedTransport : public HttpTransport {
  public:
    explicit CannedTransport(std::string body) : body_(std::move(body)) {}
    HttpReply exchange(const HttpRequest& /*request*/) override { return {200, "OK", body_}; }

  private:
    std::string body_;
};

/// Knows no TLS session of an earlier exchange.
class ForgetfulTransport : public HttpTransport {
  public:
    HttpReply exchange(const HttpRequest& request) override {
        return make_http_transport()->exchange(request);
    }
};

/// A facade set up for the gateway, with a transport of the caller's or its own.
class Enquirer {
  public:
    Enquirer(const gateway::Gateway& gateway, ZRCreditBureau::RuntimeMaker make_runtime)
        : bureau_(std::move(make_runtime)) {
        bureau_.Initialise("AU");
        auto& service = dynamic_cast<ServiceVedaXMLAU&>(bureau_.Services().Item("VedaXMLAU"));
        service.RequestURLTest(gateway.test_url());
        service.UserId("demo");
        service.UserPassword("demo-secret");
        service.SubscriberId("DEMO0001");
        service.SubscriberSecurityCode("77");
    }

    /// Runs one enquiry whose report is about 75 KB; the reply's text.
    std::string enquire() {
        const auto request = bureau_.CreateRequest();
        request->ServiceName("VedaXMLAU");
        request->ProductId("consumer-enquiry");
        request->LastName("LARGE-75");
        request->FirstName("Alba");
        request->Gender("F");
        request->StreetNumber("12");
        request->StreetName("Example");
        request->StreetType("Avenue");
        request->Suburb("North Sampleford");
        request->State("NSW");
        request->Postcode("2999");
        request->AccountType("Loan Contract");
        if (!bureau_.ExecuteCreditEnquiry(*request)) {
            std::fprintf(stderr, "%s\n", bureau_.ErrorMessage().c_str());
            std::exit(1);
        }
        return request->Response()->ResponseXML();
    }

    /// The least time of a number of enquiries, in microseconds.
    double least_time(int rounds) {
        double least = 1e12;
        for (int round = 0; round < rounds; ++round) {
            const auto start = std::chrono::steady_clock::now();
            enquire();
            const std::chrono::duration<double, std::micro> took =
                std::chrono::steady_clock::now() - start;
            least = std::min(least, took.count());
        }
        return least;
    }

  private:
    ZRCreditBureau bureau_;
};

void measure() {
    constexpr int kRounds = 200;
    const gateway::Gateway gateway;
    setenv("SSL_CERT_FILE", gateway.certificate_file().c_str(), 1);

    Enquirer live(gateway, [] { return std::make_unique<Runtime>(make_http_transport()); });
    const std::string reply = live.enquire();
    const double resumed = live.least_time(kRounds);
    const auto counts = gateway.counts();

    Enquirer forgetful(
        gateway, [] { return std::make_unique<Runtime>(std::make_unique<ForgetfulTransport>()); });
    const double full = forgetful.least_time(kRounds);

    Enquirer alone(gateway, [&reply] {
        return std::make_unique<Runtime>(std::make_unique<CannedTransport>(reply));
    });
    alone.enquire();
    const double own = alone.least_time(kRounds);

    std::printf("reply of %zu bytes, %d enquiries each\n", reply.size(), kRounds);
    std::printf("whole enquiry, resumed handshake %8.0f us\n", resumed);
    std::printf("whole enquiry, full handshake    %8.0f us\n", full);
    std::printf("composition and translation      %8.0f us (below 1000)\n", own);
    std::printf("share of the exchange            %8.2f\n", (resumed - own) / resumed);
    std::printf("exchange, full / resumed         %8.2f\n", (full - own) / (resumed - own));
    std::printf(
        "resumed of the first's handshakes %7.2f (all but one)\n",
        static_cast<double>(counts.resumed_handshakes) / static_cast<double>(counts.handshakes));
}

}  // namespace
}  // namespace zr::bench

int main() {
    zr::bench::measure();
    return 0;
}
