// The New Zealand desk: what it refuses, how its replies follow from requests, where its searches
// lead.
#include <gtest/gtest.h>

#include <map>

#include "bureau_gateway/new_zealand/catalogue.h"
#include "gateway/new_zealand_requests.h"
#include "gateway/requests.h"

namespace zr::gateway::test {
namespace {

using Strings = std::vector<std::string>;

/// The codes of the complaints; New Zealand tells no more of them than a description.
Strings codes(const std::string& request) {
    Strings found = complaints(ask(request, kTestPath));
    for (std::string& each : found) {
        EXPECT_TRUE(each.ends_with(" ")) << each;
        each.pop_back();
    }
    return found;
}

TEST(NewZealandGateway, RefusesMessages) {
    struct Case {
        std::string request;
        std::string code;
        std::string path = kTestPath;
    };
    const Case cases[] = {
        {person(), "none"},
        {nz_envelope("PING", ""), "none"},
        {nz_envelope("PING", ""), "none", "/nz/sys1"},
        {nz_envelope("BCA011", ""), "M003"},
        {credit_request(), "M004"},  // the Australian order
        {with(person(), "demo-secret", "guess"), "S001"},
        {with(person(), "BCA011", "BCA001"), "V001"},
        {with(person(), "V00", "V01"), "V002"},
        {person(), "V003", "/nz/sys1"},
        {with(person(), "mode=\"test\"", "mode=\"production\""), "none", "/nz/sys1"},
        {person("Refused"), "V009"},
        {search("company-name", "refused"), "V009"},
        {person("FAULT-WHAT"), "V010"},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(refusal_code(ask(each.request, each.path)), each.code) << each.request;
    }
}

TEST(NewZealandGateway, RejectsContent) {
    struct Case {
        std::string request;
        std::string from;
        std::string to;
        Strings expected;
    };
    const std::string no_address = "<suburb>Mockburn</suburb><city>Port Specimen</city>";
    const Case cases[] = {
        {person(), "V2.0", "2.0", {"E401"}},
        {person(), "<access-purpose code=\"C1\"/>", "", {"E101"}},
        {person(), "code=\"C1\"", "code=\"\"", {"E401"}},
        {company("1234567"),
         "<client-details>",
         "<access-purpose code=\"C1\"/><client-details>",
         {"E501"}},
        {search("company-name", "A"),
         "<client-details>",
         "<access-purpose code=\"C2\"/><client-details>",
         {}},
        {person(), ">C1</client-identifier>", "></client-identifier>", {"E102"}},
        {person(), "consumer-enquiry-nz", "consumer-enquiry", {"E403"}},
        {person(), "consent=\"yes\"", "", {"E103"}},
        {company_with_directors("1234567"), "consent=\"yes\"", "", {"E103"}},
        {person(), "score=\"yes\"", "score=\"no\"", {"E401"}},
        {person(), "code=\"RD\"", "code=\"Road\"", {"E402"}},
        {person(), "code=\"RD\"", "code=\"\"", {}},
        {person(), "code=\"PL\"", "code=\"\"", {"E404"}},
        {person("x2345678901234567890123456"), "", "", {"E201"}},
        {person("Citizen", "x2345678901234"), "", "", {"E201"}},
        {person(), ">2/14<", ">123456789<", {"E201"}},
        {person(), ">Main<", "><", {"E102"}},
        {person(), no_address, "", {"E612"}},
        {person(), no_address, "<city>Port Specimen</city>", {}},
        {person(), "type=\"current\"", "type=\"previous\"", {"E603"}},
        {person(), ">0009<", ">9<", {"E303"}},
        {person(), ">03731234<", ">3731234x<", {"E303"}},
        {person(), ">XX000000<", ">XX 00000<", {"E304"}},
        {person(), ">001<", ">1<", {"E303"}},
        {person(), "<date-of-birth>1970-02-03</date-of-birth>", "", {"E614"}},
        {person(), ">E1<", "><", {"E615"}},
        {person(), ">15000<", ">-1<", {"E301"}},
        {person("Invalid"), "", "", {"E901", "E902"}},
        {company("12345678"), "", "", {"E201"}},
        {company("12AB"), "", "", {"E301"}},
        {company("1234000"), "", "", {"E701"}},
        {search("company-name", "A"), "<company-name>A</company-name>", "", {"E611"}},
        {nz_envelope("PING", "<request mode=\"test\"/>"), "", "", {"E501"}},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(codes(with(each.request, each.from, each.to)), each.expected)
            << each.from << " -> " << each.to;
    }
    EXPECT_EQ(new_zealand::street_type_codes().size(), 286u);
    EXPECT_EQ(new_zealand::account_types().size(), 35u);
}

TEST(NewZealandGateway, ReportsHoldOnlyWhatTheOptionsAskFor) {
    const std::map<std::string, const char*> parts = {
        {"score", "<score-data>"},
        {"ewp", "<electronic-white-pages>"},
        {"driver-licence", "<driver-licence>"},
        {"property-ownership", "<property-ownership>"},
        {"summary", "<summary-data>"},
        {"licencecheck", "<licencecheck-report>"},
        {"moj-fines", "<moj-fines-report>"},
    };
    for (const auto& [asked, unused] : parts) {
        // a licence that does not answer has no element that is named as a verification's
        const std::string reply = ask(person("Citizen", "Jo", " " + asked + "=\"yes\""), kTestPath);
        for (const auto& [option, element] : parts) {
            if (option != "driver-licence" || asked != "licencecheck") {
                EXPECT_EQ(reply.find(element) != std::string::npos, option == asked)
                    << option << " of " << asked;
            }
        }
    }
}

TEST(NewZealandGateway, ReportsFollowFromTheDetails) {
    EXPECT_EQ(ask(person(), kTestPath), ask(person(), kTestPath));
    const auto records = [](const std::string& reply) {
        const auto at = reply.find("<credit-file>");
        return reply.substr(at, reply.find("</enquiry-report>") - at);
    };
    const std::string same = with(with(person("ADVERSE"), ">Main<", ">Other<"), ">E1<", ">E2<");
    EXPECT_EQ(records(ask(person("Adverse"), kTestPath)).size(),
              records(ask(same, kTestPath)).size());
    EXPECT_NE(records(ask(person("Adverse", "Jo"), kTestPath)),
              records(ask(person("Adverse", "Al"), kTestPath)));
    for (const char* adverse : {"<default ", "<judgement ", "<insolvency ", "<bankruptcy "}) {
        EXPECT_EQ(ask(person("Clean"), kTestPath).find(adverse), std::string::npos) << adverse;
    }
    EXPECT_NE(ask(person("Adverse"), kTestPath).find("<default "), std::string::npos);
    for (const std::string& large : {person("LARGE-300"), search("company-name", "LARGE-300")}) {
        const std::size_t size = ask(large, kTestPath).size();
        EXPECT_GT(size, 300u * 1024);
        EXPECT_LT(size, 400u * 1024);
    }
}

/// A company's notices that continue each other: the same number, with other zeros before it.
TEST(NewZealandGateway, PublicNoticesComeInRuns) {
    bool zeros_differ = false;
    for (int number = 1'000'001; number < 1'000'200 && !zeros_differ; ++number) {
        const Element response = response_of(company(std::to_string(number)));
        const Element* file =
            response.child("enquiry-report")->child("company")->child("company-public-notice-file");
        for (std::size_t i = 1; file && i < file->children.size(); ++i) {
            const std::string_view one = *file->children[i - 1].attribute("unique-id");
            const std::string_view next = *file->children[i].attribute("unique-id");
            zeros_differ |= one != next && (one.ends_with(next) || next.ends_with(one));
        }
    }
    EXPECT_TRUE(zeros_differ);
}

TEST(NewZealandGateway, SearchesLeadToReports) {
    struct Case {
        const char* name;
        std::size_t least;
        std::size_t most;
    };
    for (const Case& each :
         {Case{"Bellbird Holdings", 2, 9}, Case{"bellbird ltd", 10, 30}, Case{"Zarnow", 1, 30},
          Case{"Kākā Foods Limited", 2, 9}, Case{"Nosuch", 0, 0}}) {
        const Element response = response_of(search("company-name", each.name));
        const auto& found = response.child("company-selection-list")->children;
        EXPECT_GE(found.size(), each.least) << each.name;
        EXPECT_LE(found.size(), each.most) << each.name;
        for (const Element& candidate : found) {
            EXPECT_EQ(candidate.name, "company-selection-list-details");
            EXPECT_FALSE(candidate.child_text("company-name-type").empty());
            const std::string number(candidate.child_text("registration-number"));
            const Element again = response_of(search("registration-number", number));
            EXPECT_EQ(again.child("company-selection-list")->children.size(), 1u);
            const Element report = response_of(company(number));
            const Element& registered =
                *report.child("enquiry-report")->child("company")->child("company");
            for (const char* part : {"company-name", "registration-number", "registration-area"}) {
                EXPECT_EQ(candidate.child_text(part), registered.child_text(part)) << number;
            }
            EXPECT_EQ(candidate.child_text("company-status"),
                      registered.child("company-details")->child_text("company-status"));
        }
    }
    EXPECT_TRUE(response_of(search("registration-number", "1000"))
                    .child("company-selection-list")
                    ->children.empty());
}

}  // namespace
}  // namespace zr::gateway::test
