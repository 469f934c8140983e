// Reports: the same for the same applicant, different for others, and between them every path that
// a client reads.
#include <gtest/gtest.h>

#include <map>

#include "bureau_gateway/australia/applicant.h"
#include "bureau_gateway/australia/catalogue.h"
#include "gateway/replies.h"
#include "gateway/requests.h"

namespace zr::gateway::test {
namespace {

CreditRequest request_for(const australia::EnquiryRow& row) {
    CreditRequest request;
    request.product = row.name;
    request.service_code = row.service_code;
    request.enquiry_type = row.enquiry_type;
    request.account_type = row.account_types.front().code;
    return request;
}

/// Paths under response of a hundred other applicants' reports for every enquiry.
std::set<std::string> paths_of_many_reports() {
    std::set<std::string> paths;
    for (const auto& row : australia::enquiry_rows()) {
        CreditRequest request = request_for(row);
        for (int i = 0; i < 100; ++i) {
            request.first = std::to_string(i) + request.account_type + request.service_code;
            request.family = row.name.substr(0, 25);
            collect_paths(*data_of(ask(credit_request(request))).child("response"), "", paths);
        }
    }
    return paths;
}

TEST(GatewayReports, EveryPathThatClientsReadOccurs) {
    const std::set<std::string> paths = paths_of_many_reports();
    const std::map<std::string, std::vector<std::string>> expected = {
        {"individual",
         {"individual-name/family-name", "individual-name/first-given-name", "gender/@type",
          "date-of-birth", "drivers-licence-number", "employment/employer", "employment/occupation",
          "employment/@create-date"}},
        {"individual/address",
         {"@type=residential-current", "@type=residential-previous", "@create-date", "unit-number",
          "street-number", "property", "street-name", "street-type/@code", "suburb", "state",
          "postcode"}},
        {"CREDIT",
         {"individual-cross-reference/@create-date",
          "individual-cross-reference/bureau-reference",
          "individual-cross-reference/individual-name/family-name",
          "default/account-details/account-type",
          "default/account-details/role/@type",
          "default/account-details/client-reference",
          "default/account-details/default-status",
          "default/account-details/default-status/@code=P",
          "default/account-details/default-status/@code=S",
          "default/account-details/default-status/@date",
          "default/original-default/date-recorded",
          "default/original-default/default-amount",
          "default/original-default/reason-to-report",
          "default/original-default/credit-provider",
          "default/current-default/date-recorded",
          "default/current-default/default-amount",
          "default/current-default/reason-to-report",
          "default/current-default/credit-provider",
          "file-note",
          "file-note/@date-recorded",
          "current-credit-provider/@date-provided",
          "current-credit-provider/credit-provider",
          "current-credit-provider/client-reference",
          "credit-enquiry/@enquiry-date",
          "credit-enquiry/@type",
          "credit-enquiry/credit-enquirer",
          "credit-enquiry/client-reference",
          "credit-enquiry/account-type",
          "credit-enquiry/role/@type=principal",
          "credit-enquiry/role/@type=guarantor",
          "credit-enquiry/enquiry-amount",
          "file-message"}},
        {"individual-public-data-file/directorship",
         {"@type=current", "@type=previous", "organisation/bureau-reference",
          "organisation/organisation-name", "organisation/organisation-type/@code",
          "organisation/organisation-number",
          "organisation/organisation-details/organisation-status",
          "organisation/australian-business-number", "date-appointed", "date-ceased",
          "date-last-known-as-director"}},
        {"individual-public-data-file/disqualified-directorship",
         {"date-disqualified", "date-disqualified-until"}},
        {"individual-public-data-file/proprietorship",
         {"date-appointed", "business/bureau-reference", "business/business-name",
          "business/australian-business-number", "business/business-registration/state",
          "business/business-registration/number"}},
        {"individual-public-data-file/bankruptcy",
         {"bankruptcy-type", "date-declared", "narrative", "proceedings/state", "proceedings/year",
          "proceedings/number", "discharge-status", "discharge-status/@date",
          "discharge-status/@type=undischarged", "discharge-status/@type=discharged",
          "discharge-status/@type=completed", "co-borrower"}},
        {"individual-public-data-file/court-action",
         {"@type=default-judgement", "@type=writ", "@type=summons", "action-date", "creditor",
          "court-type", "plaint-number", "court-action-amount", "court-action-status",
          "court-action-status/@date", "court-action-status/@code=D", "court-action-status/@code=P",
          "court-action-status/@code=S"}},
        {"individual-public-data-file", {"file-message"}},
    };
    const auto expect = [&](const std::string& path) {
        EXPECT_TRUE(paths.contains("enquiry-report/" + path)) << path;
    };
    for (const std::string match : {"primary-match/", "possible-match/"}) {
        for (const auto& [parent, children] : expected) {
            for (const std::string& child : children) {
                if (parent == "CREDIT") {
                    expect(match + "individual-consumer-credit-file/" + child);
                    expect(match + "individual-commercial-credit-file/" + child);
                } else {
                    expect(match + parent + "/" + child);
                }
            }
        }
        expect(match + "@type");
        expect(match + "bureau-reference");
    }
    for (const char* path :
         {"summary-data/summary/@name", "summary-data/summary/@type=amount",
          "summary-data/summary/@type=months", "summary-data/summary/@type=years",
          "summary-data/summary/@type=count", "summary-data/summary", "score-data/score/@type",
          "score-data/score/scorecard-name", "score-data/score/relative-risk",
          "score-data/score/relative-risk-index", "score-data/score/risk-odds",
          "score-data/score/risk-factor", "score-data/score/risk-factor/@impact-level",
          "score-data/score/risk-factor/@impact-effect",
          "score-data/score/population/@population-name",
          "score-data/score/population/population-odds", "area-level-risk/@indicator"}) {
        expect(path);
    }
}

TEST(GatewayReports, HoldOnlyWhatTheEnquiryAskedFor) {
    for (const auto& row : australia::enquiry_rows()) {
        for (const bool summary : {false, true}) {
            CreditRequest request = request_for(row);
            request.family = "ADVERSE";
            request.summary = summary;
            const Element data = data_of(ask(credit_request(request)));
            const Element& report = *data.child("response")->child("enquiry-report");
            const Element& match = *report.child("primary-match");
            const auto has = [](const Element& parent, std::string_view name) {
                return parent.child(name) != nullptr;
            };
            EXPECT_EQ(has(match, "individual-consumer-credit-file"), row.consumer_file) << row.name;
            EXPECT_EQ(has(match, "individual-commercial-credit-file"), row.commercial_file);
            EXPECT_EQ(has(report, "score-data"), row.scored) << row.name;
            EXPECT_EQ(has(report, "area-level-risk"), row.area_level_risk) << row.name;
            EXPECT_EQ(has(report, "summary-data"), summary) << row.name;
        }
    }
}

TEST(GatewayReports, FollowFromTheApplicantAndTheDay) {
    const CreditRequest jo;
    const std::string first = ask(credit_request(jo));
    EXPECT_EQ(first, ask(credit_request(jo)));
    const auto file_of = [](const std::string& reply) {
        const auto at = reply.find("<individual-public-data-file>");
        return reply.substr(at, reply.find("</primary-match>") - at);
    };
    // the address, the letter case and the reference of the client do not matter to the file
    CreditRequest same = jo;
    same.family = "CITIZEN";
    const std::string moved = with(with(credit_request(same), ">Main<", ">Other<"), ">C1<", ">C2<");
    EXPECT_EQ(file_of(first), file_of(ask(moved)));
    // another day moves the dates and nothing else
    CreditRequest adverse{.family = "Adverse"};
    const Date tomorrow{std::chrono::year{2012}, std::chrono::month{6}, std::chrono::day{16}};
    const std::string today_file = file_of(ask(credit_request(adverse)));
    EXPECT_NE(today_file, file_of(ask(credit_request(adverse), "/cta/sys1", tomorrow)));
    EXPECT_EQ(today_file.size(),
              file_of(ask(credit_request(adverse), "/cta/sys1", tomorrow)).size());
    // people differ
    std::set<std::string> references;
    for (int i = 0; i < 50; ++i) {
        const Element data = data_of(ask(credit_request({.first = "Jo" + std::to_string(i)})));
        references.emplace(data.child("response")
                               ->child("enquiry-report")
                               ->child("primary-match")
                               ->child_text("bureau-reference"));
    }
    EXPECT_EQ(references.size(), 50u);
}

TEST(GatewayReports, AReferenceFindsTheFileOfThePerson) {
    for (const char* family : {"Clean", "Adverse", "Possible", "Citizen"}) {
        CreditRequest request{.family = family};
        const std::string by_name = ask(credit_request(request));
        const Element data = data_of(by_name);
        const Element& match = *data.child("response")->child("enquiry-report")->children.begin();
        request.reference = match.child_text("bureau-reference");
        EXPECT_LE(request.reference.size(), 10u);
        const std::string by_reference = ask(credit_request(request));
        const auto public_file = [](const std::string& reply) {
            const auto at = reply.find("<individual-public-data-file>");
            return reply.substr(at, reply.find("</individual-public-data-file>") - at);
        };
        EXPECT_EQ(public_file(by_name), public_file(by_reference)) << family;
        EXPECT_EQ(refusal_code(ask(credit_request({.reference = "ABC"}))), "none");
    }
}

TEST(GatewayReports, SurnamesForDemonstrations) {
    const auto report = [](const char* family) {
        return ask(credit_request({.family = family,
                                   .product = "commercial-plus-consumer-enquiry",
                                   .enquiry_type = "credit-enquiry",
                                   .account_type = "PL"}));
    };
    for (const char* adverse : {"<default>", "<bankruptcy>", "<court-action "}) {
        EXPECT_EQ(report("clean").find(adverse), std::string::npos) << adverse;
        EXPECT_NE(report("Adverse").find(adverse), std::string::npos) << adverse;
    }
    EXPECT_NE(report("POSSIBLE").find("<possible-match "), std::string::npos);
    EXPECT_EQ(report("CLEAN").find("<possible-match "), std::string::npos);
    for (const std::size_t kilobytes : {50, 700}) {
        const auto size = report(("LARGE-" + std::to_string(kilobytes)).c_str()).size();
        EXPECT_GT(size, kilobytes * 1024);
        EXPECT_LT(size, kilobytes * 1024 * 2);
    }
    EXPECT_EQ(report("LARGE-").find("<BCAerror"), std::string::npos);
}

TEST(GatewayReports, OrganisationCandidates) {
    std::set<std::string> paths;
    std::set<std::size_t> counts;
    bool without_type_text = false;
    bool without_heading = false;
    for (int i = 0; i < 60; ++i) {
        const std::string request = organisation_request("org-name", "Acme " + std::to_string(i));
        EXPECT_EQ(ask(request), ask(request));
        const Element data = data_of(ask(request));
        const Element& response = *data.child("response");
        collect_paths(response, "", paths);
        counts.insert(response.children.size());
        for (const Element& each : response.children) {
            without_type_text |=
                each.child("australian-business-register-report")->children.empty();
            without_heading |= each.child("organisation-number-heading") == nullptr;
        }
    }
    EXPECT_GT(counts.size(), 5u);
    EXPECT_TRUE(without_type_text);
    EXPECT_TRUE(without_heading);
    for (const char* path : {"match-name", "bureau-report/bureau-reference", "organisation-type",
                             "australian-business-register-report/EntityTypeText",
                             "organisation-number-heading", "organisation-number",
                             "australian-business-number", "asic-report/asic-status", "state"}) {
        EXPECT_TRUE(paths.contains(std::string("org-id-result/") + path)) << path;
    }
    struct Case {
        const char* element;
        const char* value;
        bool found;
    };
    for (const Case& each :
         {Case{"organisation-number", "123456789", true},
          Case{"australian-business-number", "12345678901", true},
          Case{"bureau-reference", "123456", true}, Case{"organisation-number", "123456000", false},
          Case{"org-name", "nothing", false}}) {
        const std::string reply = ask(organisation_request(each.element, each.value));
        EXPECT_EQ(reply.find(each.value) != std::string::npos, each.found) << each.element;
        EXPECT_EQ(data_of(reply).child("response")->children.size(), each.found ? 1u : 0u);
    }
}

}  // namespace
}  // namespace zr::gateway::test
