#include "services/b2bay/reports.h"
#include "services/b2bay/stored_nz.h"
#include "services/summary_lines.h"
#include "services/vedaxml_nz/lines.h"
#include "services/vedaxml_nz/report.h"

namespace zr::b2bay::version_2 {
namespace {

using namespace layout;
using layout::text;  // rather than the namespace
namespace nz = new_zealand;

// One layout of the bureau has these as attributes, another as elements.
constexpr std::string_view kCreateDate = "@create-date | create-date";
constexpr std::string_view kAccountOpened = "@date-account-opened | date-account-opened";
constexpr std::string_view kLastUpdate =
    "@last-update-date | company-default-status/@last-update-date";

constexpr std::string_view kFirstAddress = "free-format-address[1]/address-line";
constexpr std::string_view kSecondAddress = "free-format-address[2]/address-line";

// Where white pages are looked for first.
constexpr std::string_view kWhitePages = "identity-verification[1]/electronic-white-pages[1]";

// In the order of the report. A position of 1 stands where the report has the node once.
Sections person_sections() {
    const Lines defaults = new_zealand::default_lines(
        line("Joint Liability", choice_at("@joint-liability | joint-liability", {{"Y", "Yes"}})),
        line("Company Loan", choice_at("@company-loan | company-loan", {{"Y", "Yes"}})),
        money("Account Balance", "total-loan-amount"));
    return {
        {person("Individual"), "Details", "individual[1]", nz::person_lines()},
        {person("Individual"), "Addresses", "individual[1]/address", nz::address_lines()},
        {person("Individual"),
         numbered("Alias"),
         "individual[1]/alias",
         {
             line({"Name", date_at(kCreateDate).within(" (", ")")},
                  {name_at("."),
                   date_at("date-of-birth").within(" (Date of Birth ", ")").if_value()}),
         }},
        {person("Individual"), "Corrections", "individual[1]", {nz::corrections_line()}},
        {prefixed("Verification"), "Property Ownership",
         "identity-verification[1]/property-ownership[1]/property-ownership-verification-result[1]",
         nz::property_ownership_lines("@verified | verified")},
        {prefixed("Verification"), "White Pages", kWhitePages, nz::white_pages_lines()},
        Section{prefixed("Verification"), "White Pages",
                "verification[1]/electronic-white-pages[1]", nz::white_pages_lines()}
            .unless_there_is(kWhitePages),
        {prefixed("Verification"), "Driver Licence", "identity-verification[1]/driver-licence[1]",
         nz::driver_licence_lines()},
        {prefixed("Notes"), with_id("Note", "@unique-id"), "note-file/note",
         nz::note_lines(kCreateDate)},
        {prefixed("Enquiries"), numbered("Enquiry"), "credit-file/credit-enquiry",
         nz::enquiry_lines(nz::corrections().within("\r\n\r\nCorrections:\r\n").if_value())},
        {prefixed("Defaults"), with_id("Default", "@defaulter-detail-number"),
         "default-file/default", defaults},
        {prefixed("Defaults (Collection Agency)"), with_id("Default", "@defaulter-detail-number"),
         "default-collection-agency-file/default", defaults},
        {prefixed("Judgements"), with_id("Judgement", "@unique-id"), "judgement-file/judgement",
         nz::judgement_lines("@date-paid | date-paid")},
        {prefixed("Bankruptcies"), with_id("Bankruptcy", "@unique-id"),
         "bankruptcy-file/bankruptcy",
         nz::bankruptcy_lines(kFirstAddress, kSecondAddress, "@unique-id")},
        {prefixed("Public Notices"), with_id("Public Notice", "@unique-id"),
         "public-notice-file/public-notice", nz::notice_lines(kFirstAddress, kSecondAddress)},
        {prefixed("Lost/Stolen Identification"), numbered("Lost/Stolen Id"),
         "lost-stolen-id-file/lost-stolen-id", nz::lost_or_stolen_lines(nz::corrections())},
        {prefixed("Company Officers"), numbered("Company Officer"),
         "company-officer-details/company-officer", nz::company_office_lines()},
        {prefixed("Summary"), "Summary Data", "summary-data/summary",
         summary_lines(Form::kMoneyText)},
        // The applicant's and the directors' alike.
        {plain("Score"), "Score", "score-data[1]", nz::score_lines()},
    };
}

Sections company_sections() {
    return {
        {plain("Company"), "Company Details", "company[1]", nz::company_lines()},
        {plain("Company"), "Addresses", "company[1]/company-address", nz::company_address_lines()},
        {plain("Company"), "Previous Names", "company[1]/previous-company-name",
         nz::previous_name_lines()},
        {plain("Company Shares"), "Shares", "company-shares[1]", nz::share_lines()},
        {plain("Company Shares"), numbered("Shareholder"), "company-shares[1]/shareholder",
         nz::shareholder_lines()},
        {plain("Company Officers"), numbered("Officer"), "company-officers/officer-details",
         nz::officer_lines()},
        {plain("Documents"),
         numbered("Document"),
         "document-history/document-details",
         {
             line({"On ", date_at("date-registered")},
                  {text_at("document-name"),
                   text_at("barcode").within(" (barcode ", ")").if_value()}),
         }},
        {plain("Credit References"), numbered("Credit Reference"),
         "company-credit-reference-file/company-credit-reference", nz::credit_reference_lines()},
        Section{plain("Public Notices"), with_trimmed_id("Public Notice", "@unique-id"),
                "company-public-notice-file/company-public-notice", nz::company_notice_lines()}
            .merging(Runs::kByFilledId),
        {plain("Enquiries"), numbered("Enquiry"), "company-credit-file/company-credit-enquirer",
         nz::company_enquiry_lines()},
        {plain("Defaults"),
         with_id("Default", "@unique-id"),
         "company-default-file/company-default",
         {
             date("Created date", "@create-date"),
             text("Credit Provider", "credit-provider"),
             date("Date Account opened", kAccountOpened),
             text("Account Terms", "account-terms"),
             line("Default Status",
                  {text_at("company-default-status"),
                   date_at(kLastUpdate).within(" (last updated ", ")").if_value()}),
             date("Last Update date", kLastUpdate),
             date("Date Paid", "date-paid"),
             money("Default Amount", "default-amount"),
             money("Default Balance", "default-balance"),
             line("Address", nz::free_address()),
             person_name("Company Officer", "company-officer"),
             text("Narrative", "narrative"),
         }},
        {plain("Judgements"), with_id("Judgement", "@unique-id"),
         "company-judgement-file/company-judgement", nz::company_judgement_lines()},
        {plain("Mercantile Gazette Notices"), with_id("Mercantile Gazette", "@unique-id"),
         "mercantile-gazette-file/company-mercantile-gazette", gazette_lines()},
        {plain("Affiliations"), numbered("Affiliation"), "known-affiliation/affiliated-company",
         nz::affiliation_lines()},
        {plain("Summary"), "Summary Data", "summary-data/summary", summary_lines(Form::kMoneyText)},
    };
}

StatisticsCategory with_runs(StatisticsCategory category, Runs runs) {
    category.runs = runs;
    return category;
}

}  // namespace

ReportDefinition new_zealand_report() {
    using namespace new_zealand::counted;
    ReportDefinition report = stored_report();
    report.individual.counted = {
        kBankruptcies,
        kDefaults,
        kCollections,
        kEnquiries,
        // The balance is that of judgements with a status; nothing is counted as unpaid.
        {.family = RecordFamily::kJudgement,
         .records = "judgement-file/judgement",
         .event_date = "load-date",
         .loaded = "judgement-amount",
         .outstanding = "judgement-amount",
         .settled_path = "judgement-status/@code",
         .settled_without_code = true,
         .open = Open::kNever},
        kPublicNotices};
    report.individual.sections = person_sections();
    report.company->part.counted = {kCompanyDefaults, kCompanyEnquiries, kCompanyJudgements,
                                    with_runs(kCompanyPublicNotices, Runs::kByFilledId)};
    report.company->part.sections = company_sections();
    report.statistics = {{RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", true},
                         {RecordFamily::kJudgement, "Judgements", ""},
                         {RecordFamily::kDefault, "Defaults", "Not Paid", true},
                         {RecordFamily::kCollection, "Default Collections", "Not Paid", true},
                         {RecordFamily::kPublicNotice, "Public Notices", "Adverse", true},
                         {RecordFamily::kEnquiry, "Enquiries", ""}};
    return report;
}

}  // namespace zr::b2bay::version_2
