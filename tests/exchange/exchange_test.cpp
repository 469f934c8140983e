// Whole enquiries over HTTPS: the facade with its real transport against the bureau stand-in,
// whatever that does.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "bureau_gateway/gateway.h"
#include "facade/zr_credit_bureau.h"
#include "services/vedaxml_au/service_vedaxml_au.h"
#include "support/scoped_environment.h"

namespace zr {
namespace {

using namespace std::chrono_literals;

/// The platform's transport with limits that a test can wait for.
class HastyTransport : public HttpTransport {
  public:
    HttpReply exchange(const HttpRequest& request) override {
        HttpRequest hasty = request;
        hasty.timeouts = {kLimit, kLimit, kLimit, kLimit};
        return transport_->exchange(hasty);
    }
    static constexpr std::chrono::milliseconds kLimit{1500};

  private:
    std::unique_ptr<HttpTransport> transport_ = make_http_transport();
};

gateway::Settings pinned_day() {
    gateway::Settings settings;
    settings.today = std::chrono::year{2012} / 6 / 15;
    return settings;
}

class Exchange : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(bureau_.Initialise("AU"));
        service().RequestURLTest(gateway_.test_url());
        service().RequestURL(gateway_.production_url());
        service().UserId("demo");
        service().UserPassword("demo-secret");
        service().SubscriberId("DEMO0001");
        service().SubscriberSecurityCode("77");
    }

    ServiceVedaXMLAU& service() {
        return dynamic_cast<ServiceVedaXMLAU&>(bureau_.Services().Item("VedaXMLAU"));
    }

    std::unique_ptr<Request> enquiry(std::string_view last_name) {
        auto request = bureau_.CreateRequest();
        request->ServiceName("VedaXMLAU");
        request->ProductId("consumer-enquiry");
        request->LastName(last_name);
        request->FirstName("Alba");
        request->Gender("F");
        request->DateOfBirth(DateTime::ymd(1988, 2, 29));
        request->StreetNumber("12");
        request->StreetName("Example");
        request->StreetType("Avenue");
        request->Suburb("North Sampleford");
        request->State("NSW");
        request->Postcode("2999");
        request->AccountType("Loan Contract");
        request->EnquiryAmount(Currency::from_whole(15000));
        return request;
    }

    /// Runs an enquiry while the gateway plays the fault; true when it succeeds.
    bool enquire(const std::string& fault, Request& request) {
        gateway_.set_faults(fault.empty() ? std::vector<std::string>{}
                                          : std::vector<std::string>{fault});
        return bureau_.ExecuteCreditEnquiry(request);
    }

    gateway::Gateway gateway_{pinned_day()};
    test::ScopedEnvironment authorities_{"SSL_CERT_FILE", gateway_.certificate_file().string()};
    ZRCreditBureau bureau_{
        [] { return std::make_unique<Runtime>(std::make_unique<HastyTransport>()); }};
};

TEST_F(Exchange, AnEnquiryBringsTheReportHome) {
    const auto request = enquiry("Adverse");
    ASSERT_TRUE(bureau_.ExecuteCreditEnquiry(*request)) << bureau_.ErrorMessage();
    const auto response = request->Response();
    EXPECT_EQ(response->LastName(), "Adverse");
    EXPECT_GT(response->DefaultCount(), 0);
    EXPECT_GT(response->ResponseElements().Count(), 20);
    EXPECT_FALSE(request->Dirty());

    // Unchanged: answered without the bureau.
    const auto requests = gateway_.counts().requests;
    EXPECT_TRUE(bureau_.ExecuteCreditEnquiry(*request));
    EXPECT_EQ(gateway_.counts().requests, requests);
}

TEST_F(Exchange, WarmEnquiriesResumeTheTlsSessionOnNewConnections) {
    for (const std::string_view name : {"First", "Second", "Third", "Fourth"}) {
        ASSERT_TRUE(bureau_.ExecuteCreditEnquiry(*enquiry(name))) << bureau_.ErrorMessage();
    }
    const auto counts = gateway_.counts();
    EXPECT_EQ(counts.connections, 4U);
    EXPECT_EQ(counts.resumed_handshakes, 3U);
    EXPECT_EQ(counts.requests, 4U);
}

TEST_F(Exchange, SearchAndConnectionTestReachTheBureau) {
    EXPECT_TRUE(bureau_.ExecuteVerifyConnection("vedaxmlau")) << bureau_.ErrorMessage();
    const auto request = bureau_.CreateRequest();
    request->ServiceName("VedaXMLAU");
    request->CompanyName("Acme");
    ASSERT_TRUE(bureau_.ExecuteGetList(*request)) << bureau_.ErrorMessage();
    for (const CompanySelection& company : request->Response()->CompanySelections()) {
        EXPECT_FALSE(company.CompanyName().empty());
    }
}

TEST_F(Exchange, ProductionModeGoesToTheProductionAddress) {
    bureau_.TestMode(false);
    EXPECT_TRUE(bureau_.ExecuteCreditEnquiry(*enquiry("Clean"))) << bureau_.ErrorMessage();
}

TEST_F(Exchange, WrongPasswordIsRefusedWithoutNamingIt) {
    service().UserPassword("not-the-password");
    EXPECT_FALSE(bureau_.ExecuteCreditEnquiry(*enquiry("Clean")));
    EXPECT_EQ(bureau_.ErrorMessage().find("not-the-password"), std::string::npos);
    EXPECT_FALSE(bureau_.ExecuteVerifyConnection("VedaXMLAU"));
}

TEST_F(Exchange, EveryFailureHasItsMessageAndLosesNothing) {
    const std::string causes = "\r\n\r\nPossible causes of this error are:\r\n\r\n";
    const std::string no_connection = causes + "1. You do not have a connection to the Internet.";
    const std::string invalid_document =
        "The response received was not a valid XML document.\r\n\r\nMessage\t: ";
    const struct {
        const char* fault;
        std::string message;  ///< that the error message contains
        bool reply_kept;
    } cases[] = {
        {"status=401",
         "'Unauthorized' (401) was received attempting to contact the Server." + causes +
             "1. Your connection details (VedaXML User Id",
         true},
        {"status=500", "(500) was received attempting to contact '" + gateway_.test_url() + "'.",
         true},
        {"redirect", "(302) was received attempting to contact", true},
        {"html", invalid_document, true},
        {"malformed", invalid_document, true},
        {"empty", invalid_document, false},
        {"entity", invalid_document, true},
        {"deep", invalid_document, true},
        {"attributes", invalid_document, true},
        {"delay-headers=4000",
         "The operation timed out (error -2147012894)." + causes +
             "1. Your connection details (Timeout) are not setup correctly.\r\n",
         false},
        {"delay-body=4000", "The operation timed out", false},
        {"delay-tls=4000", "The operation timed out", false},
        {"drop-before-headers", no_connection, false},
        {"drop-in-headers", no_connection, false},
        {"drop-in-body", no_connection, false},
        {"truncate", no_connection, false},
        {"drop-connect", no_connection, false},
        {"not-tls", no_connection, false},
        {"not-http", no_connection, false},
        {"cert-host", no_connection, false},
        {"cert-expired", no_connection, false},
        {"cert-unknown", no_connection, false},
        {"charset=martian", no_connection, false},
        {"oversize=70000000", no_connection, false},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.fault);
        // Faults of the whole server need a new connection.
        ASSERT_TRUE(bureau_.Initialise("AU"));
        SetUp();
        const auto request = enquiry("Clean");
        EXPECT_FALSE(enquire(each.fault, *request));
        EXPECT_NE(bureau_.ErrorMessage().find(each.message), std::string::npos)
            << bureau_.ErrorMessage();
        EXPECT_EQ(bureau_.ErrorMessage().find("demo-secret"), std::string::npos);
        EXPECT_TRUE(request->Dirty());
        EXPECT_EQ(request->LastName(), "Clean");
        EXPECT_EQ(!request->Response()->ResponseXML().empty(), each.reply_kept);
        EXPECT_EQ(request->Response()->ResponseElements().Count(), 0);
    }
    // And the next enquiry is none the worse for it.
    const auto request = enquiry("Clean");
    EXPECT_TRUE(enquire("", *request)) << bureau_.ErrorMessage();
}

TEST_F(Exchange, RepliesInOtherCharsetsAndPiecesAreRead) {
    for (const char* fault : {"charset=iso-8859-1", "charset=utf-16le", "charset=utf-16be", "bom",
                              "bom=utf-16le", "slow-body=20", "delay-headers=200"}) {
        SCOPED_TRACE(fault);
        const auto request = enquiry("Adverse");
        EXPECT_TRUE(enquire(fault, *request)) << bureau_.ErrorMessage();
        EXPECT_EQ(request->Response()->LastName(), "Adverse");
    }
}

TEST_F(Exchange, RefusalsAreTheBureausWords) {
    EXPECT_FALSE(bureau_.ExecuteCreditEnquiry(*enquiry("Refused")));
    EXPECT_NE(bureau_.ErrorMessage().find("\r\n\r\n"), std::string::npos) << bureau_.ErrorMessage();
    EXPECT_FALSE(bureau_.ExecuteCreditEnquiry(*enquiry("Invalid")));
    const std::string& message = bureau_.ErrorMessage();
    const std::size_t first = message.find("Type of error '");
    ASSERT_NE(first, std::string::npos) << message;
    EXPECT_NE(message.find("Type of error '", first + 1), std::string::npos) << message;
}

}  // namespace
}  // namespace zr
