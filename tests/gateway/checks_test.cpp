// What the gateway refuses and rejects, and that it lets good requests through.
#include <gtest/gtest.h>

#include "bureau_gateway/australia/catalogue.h"
#include "gateway/replies.h"
#include "gateway/requests.h"

namespace zr::gateway::test {
namespace {

using Strings = std::vector<std::string>;

TEST(GatewayChecks, EveryEnquiryNameIsAnsweredUnderItsOwnServiceCodeOnly) {
    for (const auto& row : australia::enquiry_rows()) {
        CreditRequest request;
        request.product = row.name;
        request.service_code = row.service_code;
        request.enquiry_type = row.enquiry_type;
        request.account_type = row.account_types.back().code;
        EXPECT_EQ(complaints(ask(credit_request(request))), Strings{}) << row.name;
        request.service_code = request.service_code == "BCA001" ? "BCA003" : "BCA001";
        EXPECT_EQ(complaints(ask(credit_request(request))), Strings{"E604 product"}) << row.name;
    }
}

TEST(GatewayChecks, RefusesMessages) {
    const std::string good = credit_request();
    struct Case {
        std::string request;
        std::string code;
        std::string path = "/cta/sys1";
    };
    const Case cases[] = {
        {good, "none"},
        {"not xml", "M001"},
        {"<!DOCTYPE BCAmessage><BCAmessage type=\"REQUEST\"></BCAmessage>", "M001"},
        {with(good, "\"REQUEST\"", "\"RESPONSE\""), "M002"},
        {envelope("PING", ""), "M003"},
        {envelope("PING", "<request mode=\"test\"/><request mode=\"test\"/>"), "M003"},
        {with(good, "<BCAaccess-pwd>demo-secret</BCAaccess-pwd>", ""), "M004"},
        {with(good, "client-ref></", "client-ref>12345678901234567</"), "M004"},
        {with(good, "demo-secret", "guess"), "S001"},
        {with(good, ">demo<", ">Demo<"), "S001"},
        {with(good, "BCA001", "BCA999"), "V001"},
        {with(good, "V00", "V01"), "V002"},
        {good, "V003", "/sys1"},
        {with(good, "mode=\"test\"", "mode=\"production\""), "V003"},
        {with(good, "mode=\"test\"", "mode=\"production\""), "none", "/sys1"},
        {credit_request({.family = "Refused"}), "V009"},
        {credit_request({.family = "FAULT-WHAT"}), "V010"},
        {credit_request({.family = "FAULT-CERT-HOST"}), "V010"},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(refusal_code(ask(each.request, each.path)), each.code) << each.request;
    }
}

TEST(GatewayChecks, RejectsContent) {
    const std::string address =
        "<address type=\"residential-previous\"><street-number></"
        "street-number><street-name>Old</street-name><street-type "
        "code=\"RD\"></street-type></address>";
    const std::string long_name(26, 'x');
    struct Case {
        std::string from;
        std::string to;
        Strings expected;
    };
    const Case cases[] = {
        {"Citizen", "", {"E102 individual-name"}},
        {"Citizen", long_name.substr(1), {}},
        {"Citizen", long_name, {"E201 individual-name"}},
        {"Citizen", "ÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄ", {}},  // 25 characters, 50 bytes
        {"<security>SEC1</security>", "", {"E101 subscriber-details"}},
        {">SEC1<", "><", {"E102 subscriber-details"}},
        {"\"residential-current\"", "\"home\"", {"E401 address", "E603 individual"}},
        {"<drivers", address + "<drivers", {}},
        {"<drivers", with(address, "previous", "current") + "<drivers", {"E603 individual"}},
        {"code=\"ST\"", "code=\"\"", {}},
        {"code=\"ST\"", "code=\"Street\"", {"E402 street-type"}},
        {"code=\"RM\"", "code=\"\"", {"E404 account-type"}},
        {"code=\"RM\"", "code=\"CH\"", {"E404 account-type"}},  // commercial files only
        {" code=\"RM\"", "", {"E103 account-type"}},
        {"15000", "15000.50", {"E301 enquiry"}},
        {"15000", "-1", {"E301 enquiry"}},
        {"1970-02-03", "1970-02-30", {"E302 individual"}},
        {"female", "Female", {"E401 gender"}},
        {"female", "", {}},
        {"consumer-enquiry", "other-enquiry", {"E403 product"}},
        {"credit-application", "credit-enquiry", {"E605 enquiry"}},
        {"summary=\"yes\"", "summary=\"no\"", {"E401 product"}},
        {"reference=\"T1\"", "reference=\"12345678901234\"", {"E201 request"}},
        {"<unit-number>3</unit-number>", "<unit-number></unit-number>", {"E102 address"}},
        {"<suburb>Mockham</suburb>", "", {}},
        {"<enquiry type",
         "<bureau-reference>1</bureau-reference><enquiry type",
         {"E501 request", "E601 request"}},
        {"<occupation>Clerk</occupation>",
         "<occupation>Clerk</occupation><employer>B</employer>",
         {"E501 employment"}},
        // several complaints come in the order of the document, whichever rule found them
        {"<street-name>Main</street-name><street-type code=\"ST\">",
         "<street-name></street-name><street-type code=\"zz\" x=\"y\">",
         {"E102 address", "E502 street-type", "E402 street-type"}},
    };
    for (const Case& each : cases) {
        Strings found = complaints(ask(with(credit_request(), each.from, each.to)));
        if (each.expected.size() < 3) {
            std::sort(found.begin(), found.end());
        }
        EXPECT_EQ(found, each.expected) << each.from << " -> " << each.to;
    }
}

TEST(GatewayChecks, ComplaintsComeInTheOrderOfTheDocument) {
    std::string request = with(credit_request(), "15000", "lots");
    request = with(request, "Citizen", "");
    request = with(request, "code=\"ST\"", "code=\"zz\"");
    EXPECT_EQ(complaints(ask(request)),
              (Strings{"E102 individual-name", "E402 street-type", "E301 enquiry"}));
    EXPECT_EQ(complaints(ask(credit_request({.family = "invalid"}))),
              (Strings{"E901 individual", "E902 enquiry"}));
}

TEST(GatewayChecks, OtherServices) {
    const std::string search = organisation_request("org-name", "Acme");
    EXPECT_EQ(complaints(ask(search)), Strings{});
    EXPECT_EQ(complaints(ask(with(search, "<org-name>Acme</org-name>", ""))),
              Strings{"E602 working-with-organisation"});
    EXPECT_EQ(complaints(ask(with(search, "2.0", "1.0"))), Strings{"E401 request"});
    const std::string ping = envelope("PING", "<request mode=\"test\"></request>");
    EXPECT_EQ(complaints(ask(ping)), Strings{});
    EXPECT_TRUE(data_of(ask(ping)).child("response"));
    EXPECT_EQ(complaints(ask(with(ping, "mode=", "version=\"1.0\" mode="))),
              Strings{"E502 request"});
}

TEST(GatewayChecks, NothingOfTheApplicantIsRepeatedInComplaints) {
    const std::string secret = "SECRETSECRETSECRETSECRETSECRET";
    for (const char* part : {"Citizen", "SEC1", "15000", "1970-02-03", "ST", "RM", "Mockham"}) {
        EXPECT_EQ(ask(with(credit_request(), part, secret)).find(secret), std::string::npos)
            << part;
    }
}

}  // namespace
}  // namespace zr::gateway::test
