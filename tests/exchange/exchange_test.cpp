// Whole enquiries over HTTPS: the facade with its real transport against the bureau stand-in,
// whatever that does.

#include <gtest/gtest.h>

#include <memory>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "bureau_gateway/documents/xml.h"
#include "bureau_gateway/gateway.h"
#include "support/scoped_environment.h"
#include "zrcreditbureau/vedaxml_services.h"
#include "zrcreditbureau/zr_credit_bureau.h"

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

/// The stand-in's tables of codes are the services'.
TEST(ExchangeCodes, AreTheServices) {
    const struct {
        const char* country;
        const char* service;
        const char* product;  ///< none: a table of the service
        const char* name;
        const char* table;  ///< of the stand-in
    } rows[] = {
        {"AU", "VedaXMLAU", nullptr, "StreetTypes", "australia/street-type"},
        {"AU", "VedaXMLAU", nullptr, "OrganisationTypes", "australia/organisation-type"},
        {"AU", "VedaXMLAU", "consumer-enquiry", "AccountTypes", "australia/consumer-account"},
        {"AU", "VedaXMLAU", "consumer-plus-commercial-enquiry", "AccountTypes",
         "australia/consumer-plus-commercial-account"},
        {"AU", "VedaXMLAU", "commercial-enquiry", "AccountTypes", "australia/commercial-account"},
        {"NZ", "VedaXMLNZ", nullptr, "StreetTypes", "new_zealand/street-type"},
        {"NZ", "VedaXMLNZ", "enquiry_individual", "AccountTypes", "new_zealand/account-type"},
        {"NZ", "VedaXMLNZ", nullptr, "NotesTypeCodes", "new_zealand/note-type"},
        {"NZ", "VedaXMLNZ", nullptr, "CorrectionStatus", "new_zealand/correction-status"},
        {"NZ", "VedaXMLNZ", nullptr, "InsolvencyType", "new_zealand/insolvency-type"},
        {"NZ", "VedaXMLNZ", nullptr, "InsolvencyStatus", "new_zealand/insolvency-status"},
        {"NZ", "VedaXMLNZ", nullptr, "InsolvencyCourt", "new_zealand/insolvency-court"},
    };
    for (const auto& row : rows) {
        ZRCreditBureau bureau;
        ASSERT_TRUE(bureau.Initialise(row.country));
        const Service& service = bureau.Services().Item(row.service);
        const auto& tables =
            row.product ? service.Products().Item(row.product).CodeTables() : service.CodeTables();
        const std::string table = row.table;
        const auto slash = table.find('/');
        const auto codes = gateway::load(ZR_TEST_DATA "/../tools/bureau_gateway/requests/" +
                                         table.substr(0, slash) + "/codes.xsd");
        const auto rows_of_table = gateway::XPath(*codes).nodes(
            "//xs:simpleType[@name='" + table.substr(slash + 1) + "']//xs:enumeration",
            *codes->children);
        ASSERT_EQ(static_cast<std::size_t>(tables.Item(row.name).Count()), rows_of_table.size())
            << table;
        for (std::size_t i = 0; i < rows_of_table.size(); ++i) {
            const CodeTableItem& item =
                tables.Item(row.name).Item(static_cast<std::int32_t>(i + 1));
            const std::string text =
                gateway::attribute(*rows_of_table[i], "text", "urn:bureau-gateway");
            EXPECT_EQ(gateway::attribute(*rows_of_table[i], "value"), item.Code()) << table;
            EXPECT_TRUE(text.empty() || text == item.Description()) << item.Code();
        }
    }
}

/// Between them the stand-in's reports show every kind of line that they have shown so far. What
/// directors have on file depends on the day.
TEST(ExchangeReports, ShowEveryKindOfLine) {
    const gateway::Gateway stand_in;
    const test::ScopedEnvironment authorities("SSL_CERT_FILE",
                                              stand_in.certificate_file().string());
    const struct {
        const char* service;
        const char* product;
        const char* account_type;
        std::size_t least;  ///< different groups, sub-groups and names, numbers and dates apart
    } rows[] = {
        {"VedaXMLAU", "consumer-enquiry", "Loan Contract", 195},
        {"VedaXMLAU", "consumer-plus-commercial-enquiry", "Loan Contract", 226},
        {"VedaXMLAU", "commercial-enquiry", "Leasing", 194},
        {"VedaXMLAU", "commercial-plus-consumer-enquiry", "Leasing", 240},
        {"VedaXMLNZ", "enquiry_individual", "Personal Loan", 194},
        {"VedaXMLNZ", "enquiry_company", "", 101},
        {"VedaXMLNZ", "enquiry_company_with_directors", "", 215},
    };
    const auto fill = [](Service& service, const std::string& url) {
        const auto put = [&](auto& live) {
            live.RequestURLTest(url);
            live.UserId("demo");
            live.UserPassword("demo-secret");
        };
        if (auto* australian = dynamic_cast<ServiceVedaXMLAU*>(&service)) {
            put(*australian);
            australian->SubscriberId("S");
            australian->SubscriberSecurityCode("7");
        } else {
            auto& other = dynamic_cast<ServiceVedaXMLNZ&>(service);
            put(other);
            other.ClientId("C");
            other.CompanyAddDirectorsStatistics(true);
        }
    };
    for (const auto& row : rows) {
        ZRCreditBureau bureau;
        const bool australian = std::string_view(row.service) == "VedaXMLAU";
        ASSERT_TRUE(bureau.Initialise(australian ? "AU" : "NZ"));
        fill(bureau.Services().Item(row.service),
             australian ? stand_in.test_url() : stand_in.address() + "/nz/cta/sys1");
        std::set<std::string> lines;
        for (int i = 0; i < 60; ++i) {
            const auto request = bureau.CreateRequest();
            request->ServiceName(row.service);
            request->ProductId(row.product);
            request->AccountType(row.account_type);
            request->Purpose("Credit Decision");
            request->EnquiryReference("E1");
            request->LastName(i % 3 == 0 ? "Possible" : "Adverse");
            request->FirstName("N" + std::to_string(i));
            request->Gender("F");
            request->DateOfBirth(DateTime::ymd(1988, 2, 29));
            request->DriverLicenceNumber("XX000000 001");
            request->PhoneNumber("3731234");
            request->StreetNumber("12");
            request->StreetName("Example");
            request->StreetType("Avenue");
            request->Suburb("North Sampleford");
            request->PrevStreetName("Former");
            request->Employer("Acme");
            request->Occupation("Clerk");
            request->CompanyNumber(std::to_string(1'000'001 + i * 7919));
            for (const char* option : {"score", "scorealr", "summary", "ewp", "driver-licence",
                                       "property-ownership", "licencecheck", "moj-fines"}) {
                request->OptionChecked(option, true);
            }
            ASSERT_TRUE(bureau.ExecuteCreditEnquiry(*request)) << bureau.ErrorMessage();
            static const std::regex kVarying("[0-9]{2}-[A-Z][a-z]{2}-[0-9]{2}|[0-9]+");
            for (const ResponseElement& line : request->Response()->ResponseElements()) {
                std::string kind;
                for (const auto part :
                     {line.ResponseGroup(), line.ResponseSubGroup(), line.ResponseName()}) {
                    kind.append(part).append("|");
                }
                lines.insert(std::regex_replace(kind, kVarying, "#"));
            }
        }
        EXPECT_GE(lines.size(), row.least) << row.product;
    }
}

}  // namespace
}  // namespace zr
