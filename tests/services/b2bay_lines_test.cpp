// Lines of the stored B2Bay reports that depend on what a record has: each service's own, to the
// letter, where another service's differs.
#include <gtest/gtest.h>

#include "b2bay_import.h"

namespace zr::test {
namespace {

TEST(B2BayLines, AreThoseOfTheService) {
    const struct {
        const ServiceRow& service;
        const char* before;  ///< what is around the content
        std::string content;
        const char* after;
        const char* group;
        const char* lines;
    } cases[] = {
        {kV1, "<verification><quotable-values>", "<street-number-from>7</street-number-from>",
         "</quotable-values></verification>", "Verification", "Quotable Values/Street Number=7"},
        {kV1, "<summary-data>", "<summary name='A' type='amount'>5</summary>", "</summary-data>",
         "Summary", "Summary Data/A=amount: 5"},
        {kV1, "<individual><alias>",
         "<individual-name><family-name>B</family-name></individual-name>", "</alias></individual>",
         "Individual", "Alias 1/Alias 1=B"},
        // A date of birth that is the subject's own is shown, too.
        {kV2, "<individual><date-of-birth>1980-02-03</date-of-birth><alias>",
         "<individual-name><family-name>B</family-name></individual-name>"
         "<date-of-birth>1980-02-03</date-of-birth>",
         "</alias></individual>", "Individual",
         "Details/Date of Birth=03-Feb-80; Alias 1/Name ()=B (Date of Birth 03-Feb-80)"},
        {kV2, "<default-file>",
         "<default defaulter-detail-number='000' joint-liability='y' company-loan='Y'/>",
         "</default-file>", "Defaults", "Default /Detail Number=000; Default /Company Loan=Yes"},
        {kV2, "<default-file>", "<default><total-loan-amount>0</total-loan-amount></default>",
         "</default-file>", "Defaults", "Default /Account Balance=$0.00"},
        {kV2, "<credit-file>",
         "<credit-enquiry><enquiry-amount>5</enquiry-amount></credit-enquiry>", "</credit-file>",
         "Enquiries", "Enquiry 1/On =\r\n    $5.00"},
        {kV2, "<credit-file>",
         "<credit-enquiry><credit-enquirer>E</credit-enquirer><enquiry-amount>0</enquiry-amount>"
         "<client-reference>R</client-reference></credit-enquiry>",
         "</credit-file>", "Enquiries", "Enquiry 1/On =E\r\n    Client Reference \"R\""},
        // What one layout has as attributes another has as elements.
        {kV2, "<default-file>",
         "<default><joint-liability>Y</joint-liability><company-loan>Y</company-loan></default>",
         "</default-file>", "Defaults", "Default /Joint Liability=Yes; Default /Company Loan=Yes"},
        {kV2, "<individual><alias>",
         "<create-date>2010-01-02</create-date><individual-name><family-name>B</family-name>"
         "</individual-name>",
         "</alias></individual>", "Individual", "Alias 1/Name (02-Jan-10)=B"},
        {kV2, "<note-file>",
         "<note unique-id='04' type='200'><create-date>2010-01-02</create-date></note>",
         "</note-file>", "Notes", "Note 4/On 02-Jan-10=General: 2010-01-02"},
        {kV2, "<identity-verification><property-ownership>",
         "<property-ownership-verification-result><verified>Y</verified>"
         "</property-ownership-verification-result>",
         "</property-ownership></identity-verification>", "Verification",
         "Property Ownership/Verified=Y"},
        {kV2, "<verification>",
         "<electronic-white-pages><phone-type>P</phone-type></electronic-white-pages>",
         "</verification>", "Verification", "White Pages/Phone Type=P"},
        {kV2, "<verification><electronic-white-pages><phone-type>P</phone-type>",
         "</electronic-white-pages></verification><identity-verification><electronic-white-pages>",
         "<phone-type>Q</phone-type></electronic-white-pages></identity-verification>",
         "Verification", "White Pages/Phone Type=Q"},
        {kAu, "<individual><address type='current'>",
         "<create-date>2010-01-02</create-date><suburb>S</suburb>", "</address></individual>",
         "Individual", "Addresses/current (02-Jan-10)=S"},
        {kAu, "<individual><employment>",
         "<create-date>2010-01-02</create-date><employer>E</employer>",
         "</employment></individual>", "Individual", "Employment 1/Employer (02-Jan-10)=E"},
        {kAu, "<individual-consumer-credit-file>",
         "<file-note><date-recorded>2010-01-02</date-recorded></file-note>",
         "</individual-consumer-credit-file>", "Consumer Notes", "Note 1/On 02-Jan-10=2010-01-02"},
        {kAu, "<individual-commercial-credit-file>",
         "<current-credit-provider><date-provided>2010-01-02</date-provided>"
         "<credit-provider>C</credit-provider></current-credit-provider>",
         "</individual-commercial-credit-file>", "Commercial Current Credit Providers",
         "Current Credit Provider 1/On 02-Jan-10=C"},
        {kV2, "<judgement-file>", "<judgement date-paid='2012-01-02'/>", "</judgement-file>",
         "Judgements", "Judgement /Date Paid=02-Jan-12"},
        {kV2, "<lost-stolen-id-file>",
         "<lost-stolen-id lost-or-stolen='L' reported-to-police='Y'><id-type>Card</id-type>"
         "</lost-stolen-id><lost-stolen-id lost-or-stolen='?'><id-type>Pass</id-type>"
         "</lost-stolen-id>",
         "</lost-stolen-id-file>", "Lost/Stolen Identification",
         "Lost/Stolen Id 1/On =Lost Card - Reported to Police; "
         "Lost/Stolen Id 2/On =Pass - NOT REPORTED TO POLICE"},
        {kV2, "<summary-data>",
         "<summary name='A' type='amount'>n/a</summary><summary name='B' type='amount'/>"
         "<summary name='C' type='count'>4</summary>"
         "<summary name='D' type='amount'>$1,234</summary>",
         "</summary-data>", "Summary",
         "Summary Data/A=n/a; Summary Data/C=4; Summary Data/D=$1,234.00"},
        {kV2, "<company/><company-default-file>",
         "<company-default unique-id='05'><date-account-opened>2010-01-02</date-account-opened>"
         "<company-default-status last-update-date='2011-01-02'>Paid</company-default-status>"
         "</company-default><company-default unique-id='6'><company-default-status>Due"
         "</company-default-status></company-default>",
         "</company-default-file>", "Defaults",
         "Default 5/Date Account opened=02-Jan-10; "
         "Default 5/Default Status=Paid (last updated 02-Jan-11); "
         "Default 5/Last Update date=02-Jan-11; Default 6/Default Status=Due"},
        {kAu, "<individual-commercial-credit-file><credit-enquiry>",
         "<account-type>A</account-type><role type='Principal'>Principal</role>",
         "</credit-enquiry></individual-commercial-credit-file>", "Commercial Enquiries",
         "Enquiry 1/Account Type=A"},
        {kAu, "<individual-consumer-credit-file><credit-enquiry>",
         "<account-type>A</account-type><role type='principal'/>",
         "</credit-enquiry></individual-consumer-credit-file>", "Consumer Enquiries",
         "Consumer Enquiry 1/Account Type=A as principal"},
        {kAu, "<individual-consumer-credit-file><credit-enquiry>", "<account-type>A</account-type>",
         "</credit-enquiry></individual-consumer-credit-file>", "Consumer Enquiries",
         "Consumer Enquiry 1/Account Type=A"},
        {kAu, "<individual-public-data-file>", "<directorship type='current'/>",
         "</individual-public-data-file>", "Directorships", ""},
    };
    for (const auto& row : cases) {
        Import import(row.service);
        import.report(row.before + row.content + row.after);
        EXPECT_EQ(import.lines(row.group), row.lines) << row.content;
    }
}

TEST(B2BayLines, OfMissingValuesAreNotWritten) {
    const struct {
        const ServiceRow& service;
        const char* report;
    } cases[] = {
        {kV1,
         "<default-file><default/></default-file><credit-file><credit-enquiry/></credit-file>"
         "<judgement-file><judgement/></judgement-file><score-data/>"
         "<collection-file><collection/></collection-file>"},
        {kV1,
         "<company-report><company/><company-shares><shareholder/></company-shares>"
         "<known-affiliation><affiliated-company/></known-affiliation>"
         "<company-default-file><company-default/></company-default-file></company-report>"
         "<director-report/>"},
        {kV2,
         "<default-file><default/></default-file><judgement-file><judgement/></judgement-file>"
         "<public-notice-file><public-notice/></public-notice-file><score-data/>"},
        {kV2,
         "<company/><company-shares/><company-judgement-file><company-judgement/>"
         "</company-judgement-file>"},
        {kAu,
         "<individual/><individual-consumer-credit-file><default/><credit-enquiry/>"
         "</individual-consumer-credit-file><individual-public-data-file><court-action/>"
         "</individual-public-data-file>"},
    };
    for (const auto& row : cases) {
        Import import(row.service);
        for (const ResponseElement& line : import.report(row.report).ResponseElements()) {
            const std::string_view group = line.ResponseGroup();
            EXPECT_TRUE(group == "Response" || group == "Quick Summary" || group == "Statistics")
                << group << " " << line.ResponseName() << " " << line.ResponseDescription();
        }
    }
}

TEST(B2BayLines, OfAScoreAreNeverPrefixed) {
    const std::string company = "<company-report><company/></company-report>";
    const std::string director =
        "<director-report><score-data><scorecard-name>S</scorecard-name></score-data>"
        "<summary-data><summary name='N'>T</summary></summary-data></director-report>";
    for (const ServiceRow& service : {kV1, kV2}) {
        Import import(service);
        import.report(company + director + director);
        EXPECT_EQ(import.lines("Score"), "Score/Scorecard=S; Score/Scorecard=S");
        EXPECT_NE(import.lines("Director 2: Summary"), "");
    }
}

TEST(B2BayLines, OfAustralianScoresStandBesideTheMatch) {
    const std::string of_score = "<area-level-risk indicator='7'/><area-level-risk indicator='8'/>";
    const std::string of_report = "<area-level-risk indicator='9'/>";
    const auto score_data = [](const std::string& more) {
        return "<score-data>" + more + "</score-data>";
    };
    const struct {
        std::string report;
        const char* lines;
    } cases[] = {
        {score_data("<score><risk-factor impact-level='High'>F</risk-factor>"
                    "<population population-odds='2.5'/></score>") +
             of_report,
         "Score/F risk=High; Score/Population Odds=2.5; Score/Area Level Risk=9"},
        {score_data("<score><relative-risk>n/a</relative-risk><risk-odds>2.50</risk-odds>"
                    "<population population-odds='even'/></score>"),
         "Score/Relative Risk=n/a; Score/Risk Odds=2.5; Score/Population Odds=even"},
        // The score's own comes before the report's, in one line.
        {of_report + score_data(of_score), "Score/Area Level Risk=7"},
        {score_data("<area-level-risk/>") + of_report, "Score/Area Level Risk=9"},
    };
    for (const auto& row : cases) {
        Import import(kAu);
        import.report("", row.report);
        EXPECT_EQ(import.lines("Score"), row.lines) << row.report;
    }
}

}  // namespace
}  // namespace zr::test
