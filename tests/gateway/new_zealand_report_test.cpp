// New Zealand reports hold, between them, every path that a client reads.
#include <gtest/gtest.h>

#include <sstream>

#include "gateway/new_zealand_requests.h"

namespace zr::gateway::test {
namespace {

// A line each: where, then what is there. A reference, a status and a text make up a correction.
constexpr const char* kCorrection =
    " corrections/correction/correction-reference corrections/correction/correction-status/@code=RS"
    " corrections/correction/correction-status/@date"
    " corrections/correction/correction-text-detail/correction-text";

constexpr const char* kDefault =
    " @defaulter-detail-number @joint-liability=Y @company-loan=Y load-date default-date"
    " credit-provider ANZSIC-industry default-original-amount default-balance-amount"
    " total-loan-amount account-type/@code account-opened-date default-status/@code"
    " default-status/@date client-account-reference-id individual-name/family-name date-of-birth"
    " consumer-default-relationship/@type=DF consumer-default-relationship/@type=GU +CORRECTION";

/// The applicant's and the directors'.
constexpr const char* kPerson = R"(
individual individual-name/first-given-name gender/@type date-of-birth +CORRECTION
individual/address @type=current @type=previous @create-date street-number street-name
individual/address street-type/@code suburb city
individual/alias @create-date individual-name/family-name date-of-birth
note-file/note @unique-id @create-date @type=200 @type=218
credit-file/credit-enquiry @create-date account-type enquiry-amount client-reference
credit-file/credit-enquiry credit-enquirer +CORRECTION
default-file/default +DEFAULT
default-collection-agency-file/default +DEFAULT
judgement-file/judgement @unique-id load-date creditor judgement-amount court-type judgement-status
judgement-file/judgement judgement-status/@code date-paid individual-name/family-name narrative
judgement-file/judgement +CORRECTION
insolvency-file/insolvency @unique-id insolvency-number insolvency-type/@code=TYPNP
insolvency-file/insolvency insolvency-type/@code=TYPDP insolvency-status/code adjudication-date
insolvency-file/insolvency adjudication-court/code discharged-date conditions
insolvency-file/insolvency partnership-group-number partnership-group-name +CORRECTION
bankruptcy-file/bankruptcy @unique-id load-date source date-discharged free-format-address
bankruptcy-file/bankruptcy individual-name/family-name narrative narrative/unique-id +CORRECTION
public-notice-file/public-notice @unique-id load-date notice-type individual-name/family-name
public-notice-file/public-notice free-format-address narrative +CORRECTION
lost-stolen-id-file/lost-stolen-id @create-date id-type id-type/@id-detail @reported-to-police=Y
lost-stolen-id-file/lost-stolen-id @reported-to-police=N @lost-or-stolen=L @lost-or-stolen=S
lost-stolen-id-file/lost-stolen-id issuer narrative +CORRECTION
company-officer-details/company-officer @create-date company-name registration-number
company-officer-details/company-officer registration-area company-status
company-officer-details/company-officer individual-name/family-name +CORRECTION
summary-data/summary @name @type=amount @type=months @type=years @type=count
negative-block/characteristic @name=age-of-oldest-file @type=boolean @type=months @type=years
negative-block/characteristic @type=count @type=string @type=amount
)";

constexpr const char* kApplicant = R"(
file-id @match-type=exact @match-type=partial @match-type=possible
score-data scorecard-name relative-risk relative-risk-index risk-odds
identity-verification/property-ownership/property-ownership-verification-result @verified=Yes
identity-verification/property-ownership/property-ownership-verification-result @verified=No
identity-verification/property-ownership/property-ownership-verification-result property-owner
identity-verification/property-ownership/property-ownership-verification-result street-number-from
identity-verification/property-ownership/property-ownership-verification-result street-number-to
identity-verification/property-ownership/property-ownership-verification-result street-name
identity-verification/property-ownership/property-ownership-verification-result city-district
identity-verification/property-ownership/property-ownership-verification-result region-description
identity-verification/property-ownership/property-ownership-verification-result property-reference
identity-verification/electronic-white-pages electronic-white-pages-result-status displayed-data
identity-verification/electronic-white-pages phone-type narrative
identity-verification/driver-licence driver-licence-indicator/@match family-name-indicator/@match
identity-verification/driver-licence first-given-name-indicator/@match date-of-birth/@match
identity-verification/driver-licence other-given-name-indicator/@match general-message
)";

constexpr const char* kOtherOffices = R"(
licencecheck-report licencecheck-message individual-name/family-name licence-status
licencecheck-report driver-licence-details/driver-licence active-status-flag
licencecheck-report/driver-licence-component-details driver-licence-component/component-type
licencecheck-report/driver-licence-component-details driver-licence-component/component-description
licencecheck-report/driver-licence-component-details driver-licence-component/start-date
licencecheck-report/driver-licence-component-details driver-licence-component/end-date
licencecheck-report/driver-licence-component-details driver-licence-component/status
moj-fines-report moj-fines-balance-banner moj-messages/moj-message/message-text
moj-fines-report moj-messages/moj-message/moj-message-code
moj-fines-report/moj-fines-individual-details-confirmation individual-name/family-name gender/@type
moj-fines-report/moj-fines-individual-details-confirmation date-of-birth employment/occupation
moj-fines-report/moj-fines-individual-details-confirmation employment/employer request-timestamp
moj-fines-report/moj-fines-individual-details-confirmation external-transaction-reference
moj-fines-report/moj-fines-individual-details-confirmation/driver-licence-details licence-number
moj-fines-report/moj-fines-individual-details-confirmation/driver-licence-details licence-version-number
moj-fines-report/moj-fines-individual-details-confirmation/driver-licence-details driver-licence-verified
moj-fines-report/moj-fines-address-details-confirmation/address street-number street-type/@code=RD
moj-fines-report/moj-overdue-fines-balance fines-indicator fines-amount asatdate
moj-fines-report/moj-overdue-fines-balance fines-message/fines-message-text
)";

constexpr const char* kCompany = R"(
company company-name registration-number registration-area previous-company-name
company previous-company-name/@name-start-date company-address/address-line company-address/@type
company/company-details company-status body-type incorporation-date date-archived
company/company-details companies-act-1993-applies/@indicator re-registered-date
company/company-details constitution-filed/@indicator accounts-required/@indicator
company/company-details registration-act/@year
company-shares number-of-shares-issued paid-capital extensive-shareholdings/@indicator
company-shares shareholder/shareholder-name shareholder/free-format-address/address-line
company-shares shareholder/number-of-shares
company-officers/officer-details @type=Director individual-name/family-name occupation
company-officers/officer-details free-format-address/address-line
document-history/document-details date-registered document-name barcode
company-credit-reference-file/company-credit-reference @create-date supplier-industry referee-name
company-credit-reference-file/company-credit-reference turnover-amount terms-of-trade
company-credit-reference-file/company-credit-reference account-opened-date referee-phone-number
company-credit-reference-file/company-credit-reference comment/narrative
company-public-notice-file/company-public-notice @unique-id @create-date notice-type narrative
company-public-notice-file/company-public-notice adverse/@indicator=YES adverse/@indicator=NO
company-credit-file company-credit-enquirer company-credit-enquirer/@enquiry-date
company-default-file/company-default @unique-id @create-date credit-provider date-account-opened
company-default-file/company-default account-terms company-default-status date-paid default-amount
company-default-file/company-default company-default-status/@last-update-date default-balance
company-default-file/company-default free-format-address/address-line narrative
company-default-file/company-default company-officer/individual-name/family-name
company-judgement-file/company-judgement @unique-id publication-date creditor judgement-amount
company-judgement-file/company-judgement narrative gazette-narrative
known-affiliation/affiliated-company company-name registration-number company-status body-type
known-affiliation/affiliated-company number-of-shares-owned percentage-of-shares-owned
summary-data/summary @name @type=amount
)";

void expect_each(const std::set<std::string>& paths, const std::string& where,
                 std::istream& wanted) {
    for (std::string each; wanted >> each;) {
        if (each.front() == '+') {
            std::istringstream more(each == "+DEFAULT" ? kDefault : kCorrection);
            expect_each(paths, where, more);
        } else {
            EXPECT_TRUE(paths.contains(where + "/" + each)) << where << "/" << each;
        }
    }
}

/// Fails for every path of the table that is not there.
void expect_paths(const std::set<std::string>& paths, const char* table,
                  const std::string& parent = "") {
    std::istringstream lines(table);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string where;
        words >> where;
        expect_each(paths, parent + where, words);
    }
}

TEST(NewZealandReports, EveryPathOfReportsOnPeopleOccurs) {
    std::set<std::string> response;
    std::set<std::string> report;
    for (int i = 0; i < 400; ++i) {
        const Element found = response_of(person(i % 2 ? "Adverse" : "Citizen", std::to_string(i)));
        collect_paths(found, "", response);
        collect_paths(*found.child("enquiry-report"), "", report);
    }
    collect_paths(*response_of(person("Possible")).child("enquiry-report"), "", report);
    expect_paths(report, kPerson);
    expect_paths(report, kApplicant);
    expect_paths(response, kOtherOffices);
    EXPECT_TRUE(response.contains("general-message"));
}

TEST(NewZealandReports, EveryPathOfReportsOnCompaniesOccurs) {
    std::set<std::string> plain;
    std::set<std::string> with_directors;
    std::set<std::string> directors;
    for (int number = 1'000'001; number < 1'000'400; ++number) {
        const std::string text = std::to_string(number);
        collect_paths(*response_of(company(text)).child("enquiry-report"), "", plain);
        const Element response = response_of(company_with_directors(text));
        const Element& report = *response.child("enquiry-report");
        EXPECT_TRUE(report.child("director-report")) << number;
        for (const Element& each : report.children) {
            collect_paths(each, "", each.name == "director-report" ? directors : with_directors);
        }
    }
    expect_paths(plain, kCompany, "company/");
    expect_paths(with_directors, kCompany);
    expect_paths(directors, kPerson);
}

}  // namespace
}  // namespace zr::gateway::test
