// The rules of the stored B2Bay reports that whole reports do not show: what counts and by what,
// and where the three services differ from each other and from the VedaXML services.
#include <gtest/gtest.h>

#include "b2bay_import.h"
#include "services/service_engine.h"
#include "values/convert.h"

namespace zr::test {
namespace {

TEST(B2Bay, AddsUpWhatEachKindHas) {
    using enum RecordFamily;
    const struct {
        const ServiceRow& service;
        RecordFamily family;
        const char* report;
        FamilyStatistics expected;
    } cases[] = {
        // A discharge is an attribute in version 1 and an element in version 2.
        {kV1,
         kBankruptcy,
         "<bankruptcy-file><bankruptcy><date-discharged>2011-01-01"
         "</date-discharged></bankruptcy><bankruptcy date-discharged=''/></bankruptcy-file>",
         {2, {}, 1, {}, {}}},
        {kV2,
         kBankruptcy,
         "<bankruptcy-file><bankruptcy><date-discharged/></bankruptcy>"
         "<bankruptcy date-discharged='2011-01-01'/></bankruptcy-file>",
         {2, {}, 1, {}, {}}},
        {kV1,
         kDefault,
         "<default-file><default><default-amount>100.0001</default-amount>"
         "<default-balance>0.0001</default-balance></default><default><default-balance>0.00"
         "</default-balance></default><default/></default-file>",
         {3, {}, 1, convert::to_currency("100.0001"), convert::to_currency("0.0001")}},
        // Collections and judgements of version 1 have no unpaid count.
        {kV1,
         kCollection,
         "<collection-file><collection><collection-amount>9</collection-amount>"
         "<collection-balance>4</collection-balance></collection></collection-file>",
         {1, {}, 0, Currency::from_whole(9), Currency::from_whole(4)}},
        {kV1,
         kJudgement,
         "<judgement-file><judgement><judgement-amount>7</judgement-amount>"
         "</judgement></judgement-file>",
         {1, {}, 0, Currency::from_whole(7), {}}},
        {kV1,
         kJudgement,
         "<company/><company-judgement-file><company-judgement><judgement-amount>7"
         "</judgement-amount></company-judgement></company-judgement-file>",
         {1, {}, 0, {}, {}}},
        {kV1,
         kCollection,
         "<company/><company-collection-file><company-collection>"
         "<collection-amount>7</collection-amount></company-collection></company-collection-file>",
         {1, {}, 0, {}, {}}},
        {kV2,
         kCollection,
         "<default-collection-agency-file><default><default-balance-amount>3"
         "</default-balance-amount></default></default-collection-agency-file>"
         "<collection-file><collection/></collection-file>",
         {1, {}, 1, {}, Currency::from_whole(3)}},
        // The balance of version 2 holds judgements with a status.
        {kV2,
         kJudgement,
         "<judgement-file><judgement><judgement-amount>500</judgement-amount>"
         "<judgement-status "
         "code='X'/></judgement><judgement><judgement-amount>20</judgement-amount>"
         "<judgement-status code=''/></judgement></judgement-file>",
         {2, {}, 0, Currency::from_whole(520), Currency::from_whole(500)}},
        {kV2,
         kJudgement,
         "<company/><company-judgement-file><company-judgement><judgement-amount>7"
         "</judgement-amount></company-judgement></company-judgement-file>",
         {1, {}, 0, Currency::from_whole(7), {}}},
        {kV2,
         kCollection,
         "<company/><company-collection-file><company-collection/>"
         "</company-collection-file>",
         {}},
        {kAu,
         kJudgement,
         "<individual-public-data-file><court-action type='summons'>"
         "<court-action-amount>8</court-action-amount></court-action><court-action "
         "type='default-judgement'><court-action-amount>9</court-action-amount></court-action>"
         "</individual-public-data-file>",
         {1, {}, 0, Currency::from_whole(9), {}}},
        {kAu,
         kCollection,
         "<individual-public-data-file><court-action type='summons'/>"
         "</individual-public-data-file>",
         {}},
        {kAu,
         kBankruptcy,
         "<individual-public-data-file><bankruptcy><discharge-status "
         "type='completed'/></bankruptcy><bankruptcy><discharge-status type='other'/></bankruptcy>"
         "</individual-public-data-file>",
         {2, {}, 1, {}, {}}},
    };
    for (const auto& row : cases) {
        Import import(row.service);
        EXPECT_EQ(import.report(row.report).statistics(row.family), row.expected) << row.report;
    }
}

TEST(B2Bay, FindsTheCompanyAndItsDirectors) {
    const std::string director =
        "<director-report><file-id>3</file-id><credit-file><credit-enquiry/></credit-file>"
        "</director-report>";
    const std::string company_report =
        "<company-report><file-id>2</file-id><company><company-name>Beta</company-name></company>"
        "</company-report>";
    const struct {
        std::string report;
        bool individual;
        const char* file;
        const char* name;
        std::int16_t directors;
    } cases[] = {
        {"<file-id>1</file-id><company><company-name>Alpha</company-name></company>" +
             company_report + director,
         false, "1", "Alpha", 0},
        {"<file-id>1</file-id>" + company_report + director + director, false, "2", "Beta", 2},
        {company_report, false, "2", "Beta", 0},
        {"<file-id>1</file-id><company-report/>" + director, true, "1", "", 0},
    };
    for (const ServiceRow& service : {kV1, kV2}) {
        for (const auto& row : cases) {
            for (const bool counted : {false, true}) {
                Import import(service);
                import.service().CompanyAddDirectorsStatistics(counted);
                const Response& response = import.report(row.report);
                EXPECT_EQ(response.Individual(), row.individual) << row.report;
                EXPECT_EQ(response.BureauFileId(), row.file);
                EXPECT_EQ(response.CompanyName(), row.name);
                EXPECT_EQ(response.DirectorsCount(), row.directors);
                EXPECT_EQ(response.EnquiryCount(), counted ? row.directors : 0);
                EXPECT_EQ(import.lines("Statistics").starts_with("Directors/Number="),
                          row.directors > 0);
                EXPECT_EQ(
                    import.lines("Statistics").find("Directors/Warning=") != std::string::npos,
                    row.directors > 0 && counted);
            }
        }
    }
}

TEST(B2Bay, SplitsStreetNumbersAndFindsStreetTypes) {
    const struct {
        const ServiceRow& service;
        const char* number;
        const char* code;
        const char* unit;
        const char* street_number;
        const char* type;
    } cases[] = {
        {kV1, "3/12", "BY", "3", "12", "Bay"},     {kV1, "12", "ET", "", "12", "Estate"},
        {kV1, "1/2/3", "RE", "1", "2/3", "Reach"}, {kV1, "/5", "wy", "", "5", "Way"},
        {kV1, "5/", "BR", "5", "", "Briars"},      {kV2, "3/12", "BR", "3", "12", "Brae"},
        {kV2, "4", "BS", "", "4", "Briars"},       {kV2, "4", "ZZ", "", "4", ""},
    };
    for (const auto& row : cases) {
        Import import(row.service);
        const Response& response = import.report(
            std::string("<individual><address type='previous'><street-number>9</street-number>"
                        "</address><address type='current'><street-number>") +
            row.number + "</street-number><street-type code='" + row.code +
            "'/></address></individual>");
        EXPECT_EQ(response.UnitNumber(), row.unit) << row.number;
        EXPECT_EQ(response.StreetNumber(), row.street_number) << row.number;
        EXPECT_EQ(response.StreetType(), row.type) << row.code;
    }
    Import first(kV1);
    Import second(kV2);
    EXPECT_EQ(first.service().CodeTables().Item("StreetTypes").Count(), 111);
    EXPECT_TRUE(first.service().CodeTables().Item("StreetTypes").AllowDuplicateCodes());
    EXPECT_EQ(second.service().CodeTables().Item("StreetTypes").Count(), 108);
    EXPECT_FALSE(second.service().CodeTables().Item("StreetTypes").AllowDuplicateCodes());
}

TEST(B2Bay, MergesNoticesOfOneIdentifier) {
    const struct {
        const ServiceRow& service;
        std::vector<const char*> ids;  ///< null: the notice has none
        int counted;
        const char* lines;
    } cases[] = {
        {kV1, {"7", "7", "7"}, 0, "Public Notice 7/Narrative=n1\r\nn2\r\nn3"},
        {kV1,
         {"007", "7 ", "8"},
         0,
         "Public Notice 007/Narrative=n1; "
         "Public Notice 7/Narrative=n2; Public Notice 8/Narrative=n3"},
        {kV1, {nullptr, ""}, 0, "Public Notice/Narrative=n1; Public Notice/Narrative=n2"},
        {kV2,
         {"007", "7", "8"},
         2,
         "Public Notice 7/Narrative=n1\r\nn2; "
         "Public Notice 8/Narrative=n3"},
        {kV2,
         {"7", "8", "7"},
         3,
         "Public Notice 7/Narrative=n1; Public Notice 8/Narrative=n2; "
         "Public Notice 7/Narrative=n3"},
        {kV2, {nullptr, "00"}, 2, "Public Notice/Narrative=n1; Public Notice/Narrative=n2"},
    };
    for (const auto& row : cases) {
        std::string notices;
        for (std::size_t at = 0; at < row.ids.size(); ++at) {
            notices += "<company-public-notice" +
                       (row.ids[at] ? " unique-id='" + std::string(row.ids[at]) + "'" : "") +
                       "><narrative>n" + std::to_string(at + 1) +
                       "</narrative></company-public-notice>";
        }
        Import import(row.service);
        const Response& response = import.report("<company/><company-public-notice-file>" +
                                                 notices + "</company-public-notice-file>");
        EXPECT_EQ(import.lines("Public Notices"), row.lines);
        EXPECT_EQ(response.PublicNoticeCount(), row.counted) << row.lines;
    }
}

TEST(B2Bay, HasNoTransport) {
    for (const ServiceRow& row : {kV1, kV2, kAu}) {
        Import import(row);
        Request& request = *import.bureau().request;
        ServiceEngine& engine = ServiceEngine::of(import.service());
        EXPECT_TRUE(engine.CreditEnquiry(request));
        EXPECT_TRUE(engine.GetList(request));
        EXPECT_TRUE(engine.VerifyConnection());
        EXPECT_TRUE(import.bureau().script().requests.empty());
        EXPECT_TRUE(import.service().Obsolete());
        EXPECT_FALSE(import.service().CompanyAddDirectorsStatistics());
    }
    EXPECT_EQ(Import(kV1).bureau().facade.Services().List(true), "VedaXMLNZ,B2BayNZ_V2,B2BayNZ");
    EXPECT_EQ(Import(kAu).bureau().facade.Services().List(true), "VedaXMLAU,B2BayAU");
}

TEST(B2Bay, WordsErrorsAsTheBureauOfItsCountry) {
    const std::string errors =
        "<error><error-description code='E1'>First</error-description><error-type>T</error-type>"
        "<input-container>C</input-container></error>"
        "<error><error-description code='E2'>Second</error-description></error>";
    const struct {
        const ServiceRow& service;
        const char* message;
    } cases[] = {
        {kV1, "E1: First\r\n\r\nE2: Second"},
        {kV2, "E1: First\r\n\r\nE2: Second"},
        {kAu,
         "First (E1)\r\nType of error 'T', in 'C'\r\n\r\n"
         "Second (E2)\r\nType of error '', in ''"},
    };
    for (const auto& row : cases) {
        Import import(row.service);
        import.report("<file-id>1</file-id><bureau-reference>1</bureau-reference>");
        EXPECT_FALSE(import.translate(errors));
        EXPECT_EQ(import.bureau().facade.ErrorMessage(), row.message);
        // Nothing of the earlier report is left.
        EXPECT_EQ(import.bureau().request->Response()->BureauFileId(), "");
        EXPECT_EQ(import.bureau().request->Response()->ResponseElements().Count(), 0);
    }
}

}  // namespace
}  // namespace zr::test
