// What the gateway refuses and rejects, and that it lets good requests through.
#include <algorithm>

#include "gateway/replies.h"
#include "gateway/requests.h"

namespace zr::gateway::test {
namespace {

using Strings = std::vector<std::string>;

TEST(GatewayChecks, EveryEnquiryNameIsAnsweredUnderItsOwnServiceCodeOnly) {
    const struct {
        const char* name;
        const char* code;
        const char* type;
        const char* account_type;  ///< "CH" is of commercial files and of consumer files with one
    } rows[] = {
        {"consumer-enquiry", "BCA001", "credit-application", "UA"},
        {"individual-consumer-scored-enquiry", "BCA003", "credit-application", "UA"},
        {"individual-consumer-plus-alr-scored-enquiry", "BCA003", "credit-application", "UA"},
        {"consumer-plus-commercial-enquiry", "BCA001", "credit-application", "CH"},
        {"commercial-enquiry", "BCA001", "credit-enquiry", "CH"},
        {"individual-commercial-scored-enquiry", "BCA003", "credit-enquiry", "WF"},
        {"commercial-plus-consumer-enquiry", "BCA001", "credit-enquiry", "WF"},
        {"individual-commercial-plus-consumer-scored-enquiry", "BCA003", "credit-enquiry", "WF"},
    };
    for (const auto& row : rows) {
        CreditRequest request;
        request.product = row.name;
        request.service_code = row.code;
        request.enquiry_type = row.type;
        request.account_type = row.account_type;
        request.family = "Adverse";
        const Reply reply(ask(credit_request(request)));
        const std::string name = row.name;
        const bool consumer = name.find("consumer") != std::string::npos;
        const bool commercial = name.find("commercial") != std::string::npos;
        const bool scored = name.find("scored") != std::string::npos;
        const std::string report = "response/enquiry-report/";
        EXPECT_EQ(reply.count(report + "primary-match/individual-consumer-credit-file"), consumer);
        EXPECT_EQ(reply.count(report + "primary-match/individual-commercial-credit-file"),
                  commercial);
        EXPECT_EQ(reply.count(report + "score-data"), scored) << name;
        EXPECT_EQ(reply.count(report + "area-level-risk"), name.find("-alr-") != std::string::npos);
        EXPECT_EQ(reply.count(report + "summary-data"), 1u) << name;
        request.summary = false;
        EXPECT_EQ(Reply(ask(credit_request(request))).count(report + "summary-data"), 0u) << name;
        request.service_code = scored ? "BCA001" : "BCA003";
        EXPECT_EQ(complaints(ask(credit_request(request))), Strings{"E604 product"}) << name;
    }
}

TEST(GatewayChecks, RefusesMessages) {
    const std::string good = credit_request();
    const struct {
        std::string request;
        std::string code;
        std::string path = kAustralia;
    } cases[] = {
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
        {person(), "none", kNewZealand},
        {nz_envelope("PING", ""), "none", kNewZealand},
        {nz_envelope("PING", ""), "none", "/nz/sys1"},
        {nz_envelope("BCA011", ""), "M003", kNewZealand},
        {good, "M004", kNewZealand},  // the Australian order
        {with(person(), "BCA011", "BCA001"), "V001", kNewZealand},
        {person(), "V003", "/nz/sys1"},
        {with(person(), "mode=\"test\"", "mode=\"production\""), "none", "/nz/sys1"},
        {search("company-name", "refused"), "V009", kNewZealand},
        {person("FAULT-WHAT"), "V010", kNewZealand},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(refusal_code(ask(each.request, each.path)), each.code) << each.request;
    }
}

/// A change to a request that is in order, and what the bureau says to it.
struct Change {
    std::string from;
    std::string to;
    Strings expected;
};

TEST(GatewayChecks, RejectsContent) {
    const std::string address =
        "<address type=\"residential-previous\"><street-number></"
        "street-number><street-name>Old</street-name><street-type "
        "code=\"RD\"></street-type></address>";
    const std::string long_name(26, 'x');
    const Change cases[] = {
        {"Citizen", "", {"E102 individual-name"}},
        {"Citizen", long_name.substr(1), {}},
        {"Citizen", long_name, {"E201 individual-name"}},
        {"Citizen", "ÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄ", {}},  // 25 characters, 50 bytes
        {"<security>SEC1</security>", "", {"E101 subscriber-details"}},
        {">SEC1<", "><", {"E102 subscriber-details"}},
        {"\"residential-current\"", "\"home\"", {"E603 individual", "E401 address"}},
        {"<drivers", address + "<drivers", {}},
        {"<drivers", with(address, "previous", "current") + "<drivers", {"E603 individual"}},
        {"code=\"ST\"", "code=\"\"", {}},
        {"code=\"ST\"", "code=\"Street\"", {"E401 street-type"}},
        {"code=\"RM\"", "code=\"\"", {"E404 account-type"}},
        {"code=\"RM\"", "code=\"CH\"", {"E404 account-type"}},  // commercial files only
        {" code=\"RM\"", "", {"E103 account-type", "E404 account-type"}},
        {"15000", "15000.50", {"E301 enquiry"}},
        {"15000", "-1", {"E301 enquiry"}},
        {"1970-02-03", "1970-02-30", {"E302 individual"}},
        {"female", "Female", {"E401 gender"}},
        {"female", "", {}},
        {"consumer-enquiry", "other-enquiry", {"E401 product"}},
        {"credit-application", "credit-enquiry", {"E605 enquiry"}},
        {"summary=\"yes\"", "summary=\"no\"", {"E401 product"}},
        {"reference=\"T1\"", "reference=\"12345678901234\"", {"E201 request"}},
        {"<unit-number>3</unit-number>", "<unit-number></unit-number>", {"E102 address"}},
        {"<suburb>Mockham</suburb>", "", {}},
        {"<individual role",
         "<bureau-reference>1</bureau-reference><individual role",
         {"E601 request"}},
        {"<occupation>Clerk</occupation>",
         "<occupation>Clerk</occupation><employer>B</employer>",
         {"E501 employment"}},
        // several complaints come in the order of the document, whichever rule found them
        {"<street-name>Main</street-name><street-type code=\"ST\">",
         "<street-name></street-name><street-type code=\"ST\" x=\"y\">",
         {"E102 address", "E502 street-type"}},
    };
    for (const Change& each : cases) {
        EXPECT_EQ(complaints(ask(with(credit_request(), each.from, each.to))), each.expected)
            << each.from << " -> " << each.to;
    }
    const std::string organisations = organisation_request("org-name", "Acme");
    EXPECT_EQ(complaints(ask(organisations)), Strings{});
    EXPECT_EQ(complaints(ask(with(organisations, "<org-name>Acme</org-name>", ""))),
              Strings{"E101 working-with-organisation"});
    EXPECT_EQ(complaints(ask(with(organisations, "2.0", "1.0"))), Strings{"E401 request"});
    const std::string ping = envelope("PING", "<request mode=\"test\"></request>");
    EXPECT_EQ(Reply(ask(ping)).count("response"), 1u);
    EXPECT_EQ(complaints(ask(with(ping, "mode=", "version=\"1.0\" mode="))),
              Strings{"E502 request"});
    EXPECT_EQ(complaints(ask(credit_request({.family = "invalid"}))),
              (Strings{"E901 individual", "E902 enquiry"}));
}

TEST(GatewayChecks, RejectsNewZealandContent) {
    const std::string places = "<suburb>Mockburn</suburb><city>Port Specimen</city>";
    const std::string details = "<client-details>";
    const struct {
        std::string request;
        Change change;
    } cases[] = {
        {person(), {"V2.0", "2.0", {"E401"}}},
        {person(), {"<access-purpose code=\"C1\"/>", "", {"E501"}}},
        {person(), {"code=\"C1\"", "code=\"\"", {"E401"}}},
        {company("1234567"), {details, "<access-purpose code=\"C1\"/>" + details, {"E501"}}},
        {search("company-name", "A"), {details, "<access-purpose code=\"C2\"/>" + details, {}}},
        {person(), {">C1</client-identifier>", "></client-identifier>", {"E102"}}},
        {person(), {"consumer-enquiry-nz", "consumer-enquiry", {"E403"}}},
        {person(), {"consent=\"yes\"", "", {"E103"}}},
        {company_with_directors("1234567"), {"consent=\"yes\"", "", {"E103"}}},
        {person(), {"score=\"yes\"", "score=\"no\"", {"E401"}}},
        {person(), {"code=\"RD\"", "code=\"Road\"", {"E401"}}},
        {person(), {"code=\"RD\"", "code=\"\"", {}}},
        {person(), {"code=\"PL\"", "code=\"\"", {"E401"}}},
        {person("x2345678901234567890123456"), {"", "", {"E201"}}},
        {person("Citizen", "x2345678901234"), {"", "", {"E201"}}},
        {person(), {">2/14<", ">123456789<", {"E201"}}},
        {person(), {">Main<", "><", {"E102"}}},
        {person(), {places, "", {"E612"}}},
        {person(), {places, "<city>Port Specimen</city>", {}}},
        {person(), {"type=\"current\"", "type=\"previous\"", {"E603"}}},
        {person(), {">0009<", ">9<", {"E301"}}},
        {person(), {">03731234<", ">3731234x<", {"E301"}}},
        {person(), {">XX000000<", ">XX 00000<", {"E301"}}},
        {person(), {">001<", ">1<", {"E301"}}},
        {person(), {"<phone-details>", "<phone-details><x/>", {"E501"}}},
        {person(), {"<date-of-birth>1970-02-03</date-of-birth>", "", {"E614"}}},
        {person(), {">E1<", "><", {"E615"}}},
        {person(), {">15000<", ">-1<", {"E301"}}},
        {person("Invalid"), {"", "", {"E901", "E902"}}},
        {company("12345678"), {"", "", {"E201"}}},
        {company("12AB"), {"", "", {"E301"}}},
        {company("1234000"), {"", "", {"E701"}}},
        {search("company-name", "A"), {"<company-name>A</company-name>", "", {"E101"}}},
        {nz_envelope("PING", "<request mode=\"test\"/>"), {"", "", {"E501"}}},
    };
    for (const auto& [request, change] : cases) {
        EXPECT_EQ(complaints(ask(with(request, change.from, change.to), kNewZealand)),
                  change.expected)
            << change.from << " -> " << change.to;
    }
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
