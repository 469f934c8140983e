#include "services/b2bay/reports.h"
#include "services/b2bay/stored_nz.h"
#include "services/vedaxml_nz/lines.h"
#include "services/vedaxml_nz/report.h"

namespace zr::b2bay {
namespace {

using namespace layout;
using layout::text;  // rather than the namespace
namespace nz = new_zealand;

// In the order of the report. A position of 1 stands where the report has the node once.
Sections person_sections() {
    const Lines person = {
        person_name("Name"),
        text("Gender", "gender/@type"),
        date("Date of Birth", "date-of-birth"),
        text("Marital Status", "marital-status/@type"),
    };
    const Lines employment = {text("Employer", "employer"), text("Occupation", "occupation")};
    return {
        {layout::person("Individual"), "Details", "individual[1]", person},
        {layout::person("Individual"), "Addresses", "individual[1]/address", nz::address_lines()},
        {layout::person("Individual"), numbered("Employment"), "individual[1]/employment",
         employment},
        {layout::person("Individual"),
         numbered("Alias"),
         "individual[1]/alias",
         {
             person_name({"Alias ", record_position()}),
         }},
        {layout::person("Individual"), "Spouse", "spouse[1]", person},
        {layout::person("Individual"), numbered("Spouse Employment"), "spouse[1]/employment",
         employment},
        {prefixed("Notes"),
         numbered("Note"),
         "note-file/note",
         {
             date("Created date", "@create-date"),
             lookup("Note Type", "NotesTypeCodes", "@type"),
             text("Note", "."),
         }},
        {prefixed("Verification"),
         "Electoral Roll",
         "verification[1]/electoral-roll[1]",
         {
             person_name("Name"),
             line("Address", lines_at("free-format-address/address-line")),
             text("Occupation", "occupation"),
         }},
        {prefixed("Verification"),
         "Quotable Values",
         "verification[1]/quotable-values[1]",
         {
             text("Status", "quotable-values-result-status"),
             text("Owner/ Occupier 1", "owner-occupier-1"),
             text("Owner/ Occupier 2", "owner-occupier-2"),
             line("Street Number", {text_at("street-number-from"),
                                    text_at("street-number-to").within(" to ").if_value()}),
             text("Street Name", "street-name"),
             text("Region", "region"),
         }},
        {prefixed("Verification"),
         "White Pages",
         "verification[1]/electronic-white-pages[1]",
         {
             text("Status", "electronic-white-pages-result-status"),
             text("Displayed Data", "displayed-data"),
             text("Narrative", "narrative"),
         }},
        {prefixed("Enquiries"),
         numbered("Enquiry"),
         "credit-file/credit-enquiry",
         {
             date("Created date", "@create-date"),
             text("Enquirer", "credit-enquirer"),
             text("Account Type", "account-type"),
             money("Enquiry Amount", "enquiry-amount"),
         }},
        {prefixed("Defaults"),
         numbered("Default"),
         "default-file/default",
         {
             date("Created date", "@create-date"),
             date("Last Update date", "@last-update-date"),
             text("Provider", "credit-provider"),
             text("Default Status", "default-status"),
             money("Default Amount", "default-amount"),
             money("Default Balance", "default-balance"),
         }},
        {prefixed("Judgements"),
         numbered("Judgement"),
         "judgement-file/judgement",
         {
             date("Publication date", "publication-date"),
             text("Creditor", "creditor"),
             text("Court Type", "court-type"),
             money("Judgement Amount", "judgement-amount"),
             text("Judgement Status", "judgement-status"),
             date("Date Paid", "@date-paid"),
             text("Narrative", "narrative"),
         }},
        {prefixed("Bankruptcies"),
         numbered("Bankruptcy"),
         "bankruptcy-file/bankruptcy",
         {
             date("Publication date", "publication-date"),
             person_name("Name"),
             line("Address", lines_at("free-format-address[1]/address-line")),
             line("Address 2", lines_at("free-format-address[2]/address-line")),
             text("Source", "source"),
             date("Discharged date", "@date-discharged"),
             line("Narrative",
                  each_at("narrative", {text_at("@unique-id").within("", ": "), text_at(".")},
                          "\r\n")),
         }},
        {prefixed("Collections"),
         numbered("Collection"),
         "collection-file/collection",
         {
             date("Created date", "@create-date"),
             text("Creditor", "creditor"),
             text("Status", "collection-status"),
             money("Amount", "collection-amount"),
             money("Balance", "collection-balance"),
         }},
        {prefixed("Public Notices"),
         numbered("Public Notice"),
         "public-notice-file/public-notice",
         {
             date("Publication date", "publication-date"),
             text("Notice Type", "notice-type"),
             person_name("Name"),
             line("Address", lines_at("free-format-address[1]/address-line")),
             line("Address 2", lines_at("free-format-address[2]/address-line")),
             text("Narrative", "narrative"),
         }},
        {prefixed("Name-Only Public Notices"),
         numbered("Name-Only Public Notice"),
         "name-only-file/name-only-public-notice",
         {
             date("Publication date", "publication-date"),
             text("Notice Type", "notice-type"),
             text("Narrative", "narrative"),
         }},
        {prefixed("Mercantile Gazette Notices"),
         numbered("Mercantile Gazette"),
         "name-only-file/mercantile-gazette",
         {
             date("Publication date", "publication-date"),
             text("Notice Type", "mercantile-gazette-type"),
             text("Narrative", "narrative"),
         }},
        {prefixed("Company Officers"),
         numbered("Company Officer"),
         "company-officer-details/company-officer",
         {
             text("Company Name", "company-name"),
             text("Company Number", "registration-number"),
             text("Registration Area", "registration-area"),
             text("Company Status", "company-status"),
         }},
        {prefixed("Summary"),
         "Summary Data",
         "summary-data/summary",
         {
             line(text_at("@name"), {text_at("@type").within("", ": "), text_at(".")}),
         }},
        // The applicant's and the directors' alike.
        {plain("Score"), "Score", "score-data[1]", nz::score_lines()},
    };
}

Sections company_sections() {
    return {
        {plain("Company"), "Company Details", "company[1]", nz::company_lines()},
        {plain("Company"), "Addresses", "company[1]/company-address", nz::company_address_lines()},
        {plain("Company"),
         "Previous Names",
         "company[1]/previous-company-name",
         {
             text({"From ", date_at("@name-start-date")}, "."),
         }},
        {plain("Company Shares"), "Shares", "company-shares[1]", nz::share_lines()},
        {plain("Company Shares"), numbered("Shareholder"), "company-shares[1]/shareholder",
         nz::shareholder_lines()},
        {plain("Company Officers"),
         numbered("Officer"),
         "company-officers/officer-details",
         {
             text("Type", "@type"),
             person_name("Name"),
             text("Occupation", "occupation"),
             line("Address", nz::free_address()),
         }},
        {plain("Credit References"),
         numbered("Credit Reference"),
         "company-credit-reference-file/company-credit-reference",
         {
             date("Created date", "@create-date"),
             text("Supplier Industry", "supplier-industry"),
             money("Turnover Amount", "turnover-amount"),
             text("Terms of Trade", "terms-of-trade"),
             date("Account Opened", "@account-opened-date"),
             text("Referee Name", "referee-name"),
             text("Referee Phone", "referee-phone-number"),
             line("Narrative", lines_at("comment/narrative")),
         }},
        {plain("Documents"),
         numbered("Document"),
         "document-history/document-details",
         {
             date("Date Registered", "create-date-registered"),
             text("Bar Code", "bar-code"),
             text("Document Name", "document-name"),
         }},
        Section{plain("Public Notices"), with_trimmed_id("Public Notice", "@unique-id"),
                "company-public-notice-file/company-public-notice", nz::company_notice_lines()}
            .merging(Runs::kByText),
        {plain("Enquiries"), numbered("Enquiry"), "company-credit-file/company-credit-enquirer",
         nz::company_enquiry_lines()},
        {plain("Defaults"),
         numbered("Default"),
         "company-default-file/company-default",
         {
             date("Created date", "@create-date"),
             text("Credit Provider", "credit-provider"),
             date("Date Account opened", "@date-account-opened"),
             text("Account Terms", "account-terms"),
             text("Default Status", "company-default-status"),
             date("Last Update date", "@last-update-date"),
             date("Date Paid", "date-paid"),
             money("Default Amount", "default-amount"),
             money("Default Balance", "default-balance"),
             person_name("Company Officer", "company-officer"),
             text("Narrative", "narrative"),
         }},
        {plain("Collections"),
         numbered("Collection"),
         "company-collection-file/company-collection",
         {
             date("Created date", "@create-date"),
             text("Creditor", "creditor"),
             text("Collection Status", "collection-status"),
             money("Collection Amount", "collection-amount"),
             money("Collection Balance", "collection-balance"),
         }},
        {plain("Judgements"), numbered("Judgement"), "company-judgement-file/company-judgement",
         nz::company_judgement_lines()},
        {plain("Registered Charges"),
         numbered("Registered Charge"),
         "registered-charge-file/registered-charge",
         {
             date("Created date", "@create-date"),
             date("Registered date", "@registered-date"),
             text("Charge Type", "charge-type"),
             text("Charge Status", "charge-status"),
             money("Secured Amount", "secured-amount"),
             text("Secured Amount Description", "secured-amount-description"),
             text("Chargeholder Name", "chargeholder-name"),
             text("Chargeholder Name (additional)", "additional-charge-holder-name"),
             text("Property Charged", "property-charged"),
         }},
        {plain("Mercantile Gazette Notices"), numbered("Mercantile Gazette"),
         "mercantile-gazette-file/company-mercantile-gazette", gazette_lines()},
        {plain("Affiliations"), numbered("Affiliation"), "known-affiliation/affiliated-company",
         nz::affiliation_lines()},
    };
}

}  // namespace

ReportDefinition new_zealand_report() {
    using namespace new_zealand::counted;
    ReportDefinition report = stored_report();
    report.person.fields.insert(report.person.fields.end(),
                                {{&Response::MaritalStatus, "marital-status/@type"},
                                 {&Response::Employer, "employment[1]/employer"},
                                 {&Response::Occupation, "employment[1]/occupation"}});
    report.individual = {
        .counted = {{.family = RecordFamily::kBankruptcy,
                     .records = "bankruptcy-file/bankruptcy",
                     .event_date = "publication-date",
                     .open = Open::kUnlessNode,
                     .status_path = "@date-discharged"},
                    // What is owed is added up, but nothing is counted as unpaid.
                    {.family = RecordFamily::kCollection,
                     .records = "collection-file/collection",
                     .event_date = "@create-date",
                     .loaded = "collection-amount",
                     .outstanding = "collection-balance",
                     .open = Open::kNever},
                    {.family = RecordFamily::kDefault,
                     .records = "default-file/default",
                     .event_date = "@create-date",
                     .loaded = "default-amount",
                     .outstanding = "default-balance"},
                    kEnquiries,
                    {.family = RecordFamily::kJudgement,
                     .records = "judgement-file/judgement",
                     .event_date = "publication-date",
                     .loaded = "judgement-amount"}},
        .quick_summary = {{RecordFamily::kEnquiry, "Enquiries", ""},
                          {RecordFamily::kDefault, "Defaults", "Not Paid", true},
                          {RecordFamily::kCollection, "Collections", ""},
                          {RecordFamily::kJudgement, "Judgements", ""},
                          {RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", true}},
        .sections = person_sections()};
    // A company's collections and judgements have no amounts.
    report.company->part = {.counted = {kCompanyEnquiries,
                                        kCompanyDefaults,
                                        {.family = RecordFamily::kCollection,
                                         .records = "company-collection-file/company-collection",
                                         .event_date = "@create-date"},
                                        {.family = RecordFamily::kJudgement,
                                         .records = "company-judgement-file/company-judgement",
                                         .event_date = "publication-date"}},
                            .quick_summary = {},
                            .sections = company_sections()};
    report.company->directors_quick_summary = {};
    report.statistics = {{RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", true},
                         {RecordFamily::kJudgement, "Judgements", ""},
                         {RecordFamily::kCollection, "Collections", ""},
                         {RecordFamily::kDefault, "Defaults", "Not Paid", true},
                         {RecordFamily::kEnquiry, "Enquiries", ""}};
    return report;
}

}  // namespace zr::b2bay
