#include "services/b2bay/individual_lines_nz.h"
#include "services/b2bay/report_tables_nz.h"
#include "services/vedaxml_nz/individual_lines.h"

namespace zr::b2bay {
namespace {

using namespace layout;

// The lines that the VedaXML reports have, too.
namespace person = new_zealand::lines;

constexpr std::uint8_t kReport = 0;  // the only source

constexpr Line kPersonLines[] = {
    person_name("Name"),
    text("Gender", "gender/@type"),
    date("Date of Birth", "date-of-birth"),
    text("Marital Status", "marital-status/@type"),
};

constexpr Line kEmploymentLines[] = {
    text("Employer", "employer"),
    text("Occupation", "occupation"),
};

constexpr Line kAliasLines[] = {
    person_name(Pieces{constant("Alias "), kRecordPosition}),
};

constexpr Line kNoteLines[] = {
    date("Created date", "@create-date"),
    lookup("Note Type", "NotesTypeCodes", "@type"),
    text("Note", "."),
};

constexpr Line kElectoralRollLines[] = {
    person_name("Name"),
    line("Address", lines_at("free-format-address/address-line")),
    text("Occupation", "occupation"),
};

constexpr Line kQuotableValuesLines[] = {
    text("Status", "quotable-values-result-status"),
    text("Owner/ Occupier 1", "owner-occupier-1"),
    text("Owner/ Occupier 2", "owner-occupier-2"),
    line("Street Number", Pieces{text_at("street-number-from"),
                                 text_at("street-number-to").within(" to ").if_value()}),
    text("Street Name", "street-name"),
    text("Region", "region"),
};

constexpr Line kWhitePagesLines[] = {
    text("Status", "electronic-white-pages-result-status"),
    text("Displayed Data", "displayed-data"),
    text("Narrative", "narrative"),
};

constexpr Line kEnquiryLines[] = {
    date("Created date", "@create-date"),
    text("Enquirer", "credit-enquirer"),
    text("Account Type", "account-type"),
    money("Enquiry Amount", "enquiry-amount"),
};

constexpr Line kDefaultLines[] = {
    date("Created date", "@create-date"),      date("Last Update date", "@last-update-date"),
    text("Provider", "credit-provider"),       text("Default Status", "default-status"),
    money("Default Amount", "default-amount"), money("Default Balance", "default-balance"),
};

constexpr Line kJudgementLines[] = {
    date("Publication date", "publication-date"),
    text("Creditor", "creditor"),
    text("Court Type", "court-type"),
    money("Judgement Amount", "judgement-amount"),
    text("Judgement Status", "judgement-status"),
    date("Date Paid", "@date-paid"),
    text("Narrative", "narrative"),
};

constexpr Line kBankruptcyLines[] = {
    date("Publication date", "publication-date"),
    person_name("Name"),
    line("Address", lines::kFirstAddress),
    line("Address 2", lines::kSecondAddress),
    text("Source", "source"),
    date("Discharged date", "@date-discharged"),
    line("Narrative", lines::kNarratives),
};

constexpr Line kCollectionLines[] = {
    date("Created date", "@create-date"),   text("Creditor", "creditor"),
    text("Status", "collection-status"),    money("Amount", "collection-amount"),
    money("Balance", "collection-balance"),
};

constexpr Line kPublicNoticeLines[] = {
    date("Publication date", "publication-date"),
    text("Notice Type", "notice-type"),
    person_name("Name"),
    line("Address", lines::kFirstAddress),
    line("Address 2", lines::kSecondAddress),
    text("Narrative", "narrative"),
};

constexpr Line kNameOnlyNoticeLines[] = {
    date("Publication date", "publication-date"),
    text("Notice Type", "notice-type"),
    text("Narrative", "narrative"),
};

constexpr Line kGazetteLines[] = {
    date("Publication date", "publication-date"),
    text("Notice Type", "mercantile-gazette-type"),
    text("Narrative", "narrative"),
};

constexpr Line kCompanyOfficeLines[] = {
    text("Company Name", "company-name"),
    text("Company Number", "registration-number"),
    text("Registration Area", "registration-area"),
    text("Company Status", "company-status"),
};

constexpr Line kSummaryLines[] = {
    line(text_at("@name"), Pieces{text_at("@type").within("", ": "), text_at(".")}),
};

// Group, word, sub-group, numbering, source, records, lines: in the order of the report. A position
// of 1 stands where the report has the node once.
constexpr Section kSections[] = {
    {Group::kPerson, "Individual", "Details", Numbering::kNone, kReport, "individual[1]",
     kPersonLines},
    {Group::kPerson, "Individual", "Addresses", Numbering::kNone, kReport, "individual[1]/address",
     person::kAddressLines},
    {Group::kPerson, "Individual", "Employment", Numbering::kPosition, kReport,
     "individual[1]/employment", kEmploymentLines},
    {Group::kPerson, "Individual", "Alias", Numbering::kPosition, kReport, "individual[1]/alias",
     kAliasLines},
    {Group::kPerson, "Individual", "Spouse", Numbering::kNone, kReport, "spouse[1]", kPersonLines},
    {Group::kPerson, "Individual", "Spouse Employment", Numbering::kPosition, kReport,
     "spouse[1]/employment", kEmploymentLines},

    {Group::kPrefixed, "Notes", "Note", Numbering::kPosition, kReport, "note-file/note",
     kNoteLines},
    {Group::kPrefixed, "Verification", "Electoral Roll", Numbering::kNone, kReport,
     "verification[1]/electoral-roll[1]", kElectoralRollLines},
    {Group::kPrefixed, "Verification", "Quotable Values", Numbering::kNone, kReport,
     "verification[1]/quotable-values[1]", kQuotableValuesLines},
    {Group::kPrefixed, "Verification", "White Pages", Numbering::kNone, kReport,
     "verification[1]/electronic-white-pages[1]", kWhitePagesLines},

    {Group::kPrefixed, "Enquiries", "Enquiry", Numbering::kPosition, kReport,
     "credit-file/credit-enquiry", kEnquiryLines},
    {Group::kPrefixed, "Defaults", "Default", Numbering::kPosition, kReport, "default-file/default",
     kDefaultLines},
    {Group::kPrefixed, "Judgements", "Judgement", Numbering::kPosition, kReport,
     "judgement-file/judgement", kJudgementLines},
    {Group::kPrefixed, "Bankruptcies", "Bankruptcy", Numbering::kPosition, kReport,
     "bankruptcy-file/bankruptcy", kBankruptcyLines},
    {Group::kPrefixed, "Collections", "Collection", Numbering::kPosition, kReport,
     "collection-file/collection", kCollectionLines},
    {Group::kPrefixed, "Public Notices", "Public Notice", Numbering::kPosition, kReport,
     "public-notice-file/public-notice", kPublicNoticeLines},
    {Group::kPrefixed, "Name-Only Public Notices", "Name-Only Public Notice", Numbering::kPosition,
     kReport, "name-only-file/name-only-public-notice", kNameOnlyNoticeLines},
    {Group::kPrefixed, "Mercantile Gazette Notices", "Mercantile Gazette", Numbering::kPosition,
     kReport, "name-only-file/mercantile-gazette", kGazetteLines},
    {Group::kPrefixed, "Company Officers", "Company Officer", Numbering::kPosition, kReport,
     "company-officer-details/company-officer", kCompanyOfficeLines},
    {Group::kPrefixed, "Summary", "Summary Data", Numbering::kNone, kReport, "summary-data/summary",
     kSummaryLines},
    // The applicant's and the directors' alike.
    {Group::kPlain, "Score", "Score", Numbering::kNone, kReport, "score-data[1]",
     person::kScoreLines},
};

}  // namespace

std::span<const Section> individual_sections() { return kSections; }

}  // namespace zr::b2bay
