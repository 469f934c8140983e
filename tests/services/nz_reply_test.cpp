// The rules of New Zealand replies that whole reports do not show: which records count and by what,
// runs of notices, and lines that depend on a code.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "support/fake_bureau.h"

namespace zr::test {
namespace {

constexpr DateTime kDate = DateTime::ymd(2024, 3, 15);

/// A New Zealand facade that translates what stands in a reply's response element.
class NewZealandReply : public testing::Test {
  protected:
    const Response& translated(const std::string& response,
                               std::string_view product = "enquiry_individual") {
        bureau.ask(product, "VedaXMLNZ");
        const std::string reply =
            "<BCAmessage><BCAservices><BCAservice><BCAservice-data><response>" + response +
            "</response></BCAservice-data></BCAservice></BCAservices></BCAmessage>";
        EXPECT_TRUE(bureau.facade.BuildResponse(*bureau.request, kDate, reply))
            << bureau.facade.ErrorMessage();
        return *bureau.request->Response();
    }
    const Response& individual(const std::string& report) {
        return translated("<enquiry-report>" + report + "</enquiry-report>");
    }
    const Response& company(const std::string& report) { return individual("<company/>" + report); }

    /// The lines of this name in the last response, joined by "; ".
    std::string lines(std::string_view group, std::string_view name) const {
        std::string text;
        for (const ResponseElement& line : bureau.request->Response()->ResponseElements()) {
            if (line.ResponseGroup() == group && line.ResponseName() == name) {
                text += (text.empty() ? "" : "; ") + std::string(line.ResponseDescription());
            }
        }
        return text;
    }

    FakeBureau bureau{"NZ"};
};

TEST_F(NewZealandReply, ReadsTheBankruptcyFileOnlyWithoutAnyInsolvency) {
    const std::string bankruptcies =
        "<bankruptcy-file><bankruptcy/><bankruptcy><date-discharged>2020-01-01</date-discharged>"
        "</bankruptcy><bankruptcy/></bankruptcy-file>";
    const auto insolvency = [](const std::string& type, const std::string& more = {}) {
        return "<insolvency-file><insolvency><insolvency-type code='" + type + "'/>" + more +
               "</insolvency></insolvency-file>";
    };
    const struct {
        std::string report;
        std::int16_t total;
        std::int16_t undischarged;
    } cases[] = {
        {bankruptcies, 3, 2},
        {bankruptcies + "<insolvency-file/>", 3, 2},
        {bankruptcies + insolvency("TYPDP"), 0, 0},
        {bankruptcies + insolvency("TYPNP"), 1, 1},
        {insolvency("typso"), 1, 1},
        {insolvency("TYPVL", "<discharged-date>2023-01-01</discharged-date>"), 1, 0},
        {insolvency("TYPCL") + insolvency("TYPIL") + insolvency("TYPCP"), 2, 2},
        {insolvency("TYPID") + insolvency(""), 0, 0},
    };
    for (const auto& row : cases) {
        const Response& response = individual(row.report);
        EXPECT_EQ(response.BankruptcyCount(), row.total) << row.report;
        EXPECT_EQ(response.BankruptcyCountUndischarged(), row.undischarged) << row.report;
    }
}

TEST_F(NewZealandReply, LooksForTheCompanyInEveryReport) {
    const std::string first = "<enquiry-report><director-report/></enquiry-report>";
    const struct {
        std::string response;
        const char* company;
        std::int16_t directors;
    } cases[] = {
        {first + "<enquiry-report><company><company><company-name>A</company-name></company>"
                 "</company></enquiry-report>",
         "A", 0},
        {first + "<enquiry-report><company-report><company><company-name>B</company-name></company>"
                 "</company-report><director-report/></enquiry-report>",
         "B", 2},
    };
    for (const auto& row : cases) {
        const Response& response = translated(row.response);
        EXPECT_EQ(response.CompanyName(), row.company);
        EXPECT_EQ(response.DirectorsCount(), row.directors) << row.company;
    }
}

TEST_F(NewZealandReply, TakesTheMessageOfTheFirstResponseOnly) {
    EXPECT_EQ(translated("<general-message>One</general-message></response><response>"
                         "<general-message>Two</general-message>")
                  .ResponseMessage(),
              "One");
    EXPECT_EQ(
        translated("</response><response><general-message>Two</general-message>").ResponseMessage(),
        "");
}

TEST_F(NewZealandReply, FindsTheFirstPropertyOwnershipResult) {
    const std::string result = "<property-ownership-verification-result><property-owner>";
    const std::string end = "</property-owner></property-ownership-verification-result>";
    individual("<identity-verification><property-ownership/><property-ownership>" + result + "A" +
               end + result + "B" + end + "</property-ownership><property-ownership>" + result +
               "C" + end + "</property-ownership></identity-verification>");
    EXPECT_EQ(lines("Verification", "Owner"), "A");
}

TEST_F(NewZealandReply, OwesNothingOnAJudgementWithAnyStatusCode) {
    const auto judgement = [](const std::string& status) {
        return "<judgement-file><judgement><judgement-amount>500</judgement-amount>" + status +
               "</judgement></judgement-file>";
    };
    const struct {
        std::string status;
        std::int16_t unpaid;
        const char* balance;
    } cases[] = {
        {"", 1, "500"},
        {"<judgement-status code=''>Open</judgement-status>", 1, "500"},
        {"<judgement-status code='any'/>", 0, "0"},
    };
    for (const auto& row : cases) {
        const Response& response = individual(judgement(row.status));
        EXPECT_EQ(response.JudgementCountUnpaid(), row.unpaid) << row.status;
        EXPECT_EQ(response.JudgementLoadedBalance().to_plain(), row.balance) << row.status;
        EXPECT_EQ(response.JudgementLoadedValue().to_plain(), "500");
    }
}

TEST_F(NewZealandReply, CountsARunOfCompanyNoticesOnceByItsFirst) {
    const struct {
        std::vector<std::pair<const char*, const char*>> notices;  // identifier, adverse
        std::int16_t total;
        std::int16_t adverse;
    } cases[] = {
        {{{"0017", "Yes"}, {"17", "no"}, {"18", "YES"}}, 2, 2},
        {{{"17", "no"}, {"0017", "yes"}}, 1, 0},
        {{{"17", "yes"}, {"18", ""}, {"17", "yes"}}, 3, 2},
        // Zeros only are no identifier, and none is equal to none.
        {{{"", "no"}, {"000", "yes"}, {"1000", "true"}}, 2, 0},
    };
    for (const auto& row : cases) {
        std::string notices;
        for (const auto& [id, adverse] : row.notices) {
            notices += std::string("<company-public-notice unique-id='") + id +
                       "'><adverse indicator='" + adverse + "'/></company-public-notice>";
        }
        const Response& response =
            company("<company-public-notice-file>" + notices + "</company-public-notice-file>");
        EXPECT_EQ(response.PublicNoticeCount(), row.total) << notices;
        EXPECT_EQ(response.PublicNoticeAdverseCount(), row.adverse) << notices;
    }
    company("<company-public-notice-file><company-public-notice/></company-public-notice-file>");
    EXPECT_EQ(lines("Statistics", "Adverse"), "None");
    individual("<public-notice-file><public-notice/></public-notice-file>");
    EXPECT_EQ(lines("Statistics", "Adverse"), "");
}

TEST_F(NewZealandReply, TakesTheFinesOfTheBalance) {
    const struct {
        const char* report;
        const char* amount;
        const char* line;
    } cases[] = {
        {"<moj-overdue-fines-balance><fines-amount>1234.50</fines-amount>"
         "</moj-overdue-fines-balance>",
         "1234.5", "1234.5"},
        {"<moj-overdue-fines-balance><fines-amount>0.00</fines-amount></moj-overdue-fines-balance>",
         "0", ""},
        {"<fines-amount>7</fines-amount>", "0", ""},
    };
    for (const auto& row : cases) {
        const Response& response = translated(std::string("<enquiry-report/><moj-fines-report>") +
                                              row.report + "</moj-fines-report>");
        EXPECT_EQ(response.MOJFinesAmount().to_plain(), row.amount);
        EXPECT_EQ(lines("Quick Summary", "Overdue Total"), row.line);
    }
}

TEST_F(NewZealandReply, SplitsAStreetNumberAtItsFirstSlash) {
    const struct {
        const char* written;
        const char* unit;
        const char* street;
    } cases[] = {{"12", "", "12"}, {"2/14", "2", "14"}, {"2/14/3", "2", "14/3"}, {"/9", "", "9"}};
    for (const auto& row : cases) {
        const Response& response = individual(
            std::string("<individual><address type='previous'><street-number>1</street-number>"
                        "</address><address type='current'><street-number>") +
            row.written + "</street-number></address></individual>");
        EXPECT_EQ(response.UnitNumber(), row.unit) << row.written;
        EXPECT_EQ(response.StreetNumber(), row.street) << row.written;
    }
}

TEST_F(NewZealandReply, SpellsCodesOut) {
    const struct {
        const char* response;
        const char* group;
        const char* name;
        const char* expected;
    } cases[] = {
        {"<moj-messages><moj-message><moj-message-code>FSR2</moj-message-code></moj-message>"
         "<moj-message><moj-message-code>ERR1</moj-message-code></moj-message>"
         "<moj-message><moj-message-code>ERR2</moj-message-code></moj-message>"
         "<moj-message><moj-message-code>ERR3</moj-message-code></moj-message>"
         "<moj-message/></moj-messages>",
         "MOJ Fines", "Type",
         "FSR2; No match/no overdue fine balance; ERR1; Fines data store is not available; "
         "ERR2; Unknown reporting user; ERR3; Invalid message data detected"},
        {"<moj-fines-individual-details-confirmation/>", "MOJ Fines", "Driver Licence Verified",
         ""},
    };
    for (const auto& row : cases) {
        translated(std::string("<moj-fines-report>") + row.response + "</moj-fines-report>");
        EXPECT_EQ(lines(row.group, row.name), row.expected);
    }
    for (const auto& [code, expected] :
         {std::pair{"N", "NOT Verified"}, std::pair{"Y", "Verified"},
          std::pair{"X", "Verification Service not available"}, std::pair{"y", "Unknown"},
          std::pair{"", "Not supplied"}}) {
        translated(std::string("<moj-fines-report><moj-fines-individual-details-confirmation>"
                               "<driver-licence-details><driver-licence-verified>") +
                   code +
                   "</driver-licence-verified></driver-licence-details>"
                   "</moj-fines-individual-details-confirmation></moj-fines-report>");
        EXPECT_EQ(lines("MOJ Fines", "Driver Licence Verified"), expected) << code;
    }
}

TEST_F(NewZealandReply, ShowsALicenceMessageInPlaceOfTheLicence) {
    translated(
        "<licencecheck-report><driver-licence-details><driver-licence>AB1</driver-licence>"
        "</driver-licence-details><driver-licence-component-details><driver-licence-component>"
        "<status>Full</status></driver-licence-component></driver-licence-component-details>"
        "<licencecheck-message>Not available</licencecheck-message></licencecheck-report>");
    EXPECT_EQ(lines("LicenceCheck", ""), "Not available");
    EXPECT_EQ(lines("LicenceCheck", "Licence") + lines("LicenceCheck", "Status"), "");
}

TEST_F(NewZealandReply, TellsWhomTheReportIsAbout) {
    const std::string name = "<company><company-name>Kowhai</company-name></company>";
    const std::string directors = "<director-report/><director-report/>";
    const struct {
        std::string report;
        bool of_company;
        const char* name;
        std::int16_t directors;
    } cases[] = {
        {"<individual/>" + directors, false, "", 0},
        {"<company-report/>" + directors, false, "", 0},
        {"<company-report>" + name + "</company-report>", true, "Kowhai", 0},
        {"<company-report>" + name + "</company-report>" + directors, true, "Kowhai", 2},
        {"<company>" + name + "</company>" + directors, true, "Kowhai", 0},
        {name + "<company-report>" + name + "</company-report>" + directors, true, "", 0},
    };
    for (const auto& row : cases) {
        const Response& response = individual(row.report);
        EXPECT_EQ(response.Company(), row.of_company) << row.report;
        EXPECT_EQ(response.CompanyName(), row.name) << row.report;
        EXPECT_EQ(response.DirectorsCount(), row.directors) << row.report;
    }
}

TEST_F(NewZealandReply, LooksAccountTypesUpInTheRequestsProduct) {
    const std::string report =
        "<enquiry-report><default-file><default><account-type code='CE'/></default></default-file>"
        "</enquiry-report>";
    for (const auto& [product, expected] :
         {std::pair{"enquiry_individual", "Consumer Inquiry"}, std::pair{"enquiry_company", ""},
          std::pair{"enquiry_company_with_directors", "Consumer Enquiry"}}) {
        translated(report, product);
        EXPECT_EQ(lines("Defaults", "Account Type"), expected) << product;
    }
}

TEST_F(NewZealandReply, ReadsTheFileAgeAsAWholeNumber) {
    for (const auto& [text, expected] :
         {std::pair{"7", 7}, std::pair{"7.5", 8}, std::pair{"40000", 0}, std::pair{"old", 0}}) {
        const Response& response =
            individual(std::string("<negative-block><characteristic name='age-of-oldest-file'>") +
                       text + "</characteristic></negative-block>");
        EXPECT_EQ(response.BureauFileAge(), expected) << text;
        EXPECT_EQ(lines("Negative Block", "age-of-oldest-file"), text);
    }
}

TEST_F(NewZealandReply, FailsWithoutAReport) {
    bureau.ask("enquiry_individual", "VedaXMLNZ");
    EXPECT_FALSE(bureau.facade.BuildResponse(*bureau.request, kDate, "no document"));
    const Response& response = *bureau.request->Response();
    EXPECT_EQ(response.ResponseXML(), "no document");
    EXPECT_EQ(response.ResponseElements().Count(), 0);
}

}  // namespace
}  // namespace zr::test
