#include "services/b2bay/individual_lines_nz.h"
#include "services/b2bay/report_tables_nz.h"
#include "services/b2bay/summary_lines.h"
#include "services/vedaxml_nz/individual_lines.h"

namespace zr::b2bay {
namespace {

using namespace layout;

// The lines that the VedaXML reports have, too.
namespace person = new_zealand::lines;

constexpr std::uint8_t kReport = 0;  // the only source

// One layout of the bureau has this as an attribute, another as an element; so others below.
constexpr std::string_view kCreateDate = "@create-date | create-date";

constexpr Line kAliasLines[] = {
    line(Pieces{constant("Name"), date_at(kCreateDate).within(" (", ")")},
         Pieces{of(Form::kPersonName, "."),
                date_at("date-of-birth").within(" (Date of Birth ", ")").if_value()}),
};

constexpr auto kPropertyOwnershipLines =
    with(person::kPropertyOwnershipLines, text("Verified", "@verified | verified"));

constexpr Line kNoteLines[] = {
    line(Pieces{constant("On "), date_at(kCreateDate)}, person::kNoteText),
};

constexpr Piece kEnquiryText[] = {
    text_at("credit-enquirer"),
    all(person::kEnquiryDetail).within("\r\n    ").if_value(),
    person::kCorrections.within("\r\n\r\nCorrections:\r\n").if_value(),
};

constexpr Line kEnquiryLines[] = {
    line(person::kOnCreateDate, kEnquiryText),
};

constexpr Case kYes[] = {{"Y", constant("Yes")}};

constexpr Line kDefaultLines[] = {
    text("Detail Number", "@defaulter-detail-number"),
    line("Joint Liability", choice_at("@joint-liability | joint-liability", kYes)),
    line("Company Loan", choice_at("@company-loan | company-loan", kYes)),
    date("Load Date", "load-date"),
    date("Default Date", "default-date"),
    text("Credit Provider", "credit-provider"),
    text("Credit Provider ANZSIC", "ANZSIC-industry"),
    money("Default Amount", "default-original-amount"),
    money("Default Balance", "default-balance-amount"),
    money("Account Balance", "total-loan-amount"),
    lookup("Account Type", "AccountTypes", "account-type/@code"),
    date("Account Opened Date", "account-opened-date"),
    text("Default Status", "default-status/@code"),
    date("Default Status changed date", "default-status/@date"),
    text("Client Reference", "client-account-reference-id"),
    person_name("Client Name"),
    date("Client Date of Birth", "date-of-birth"),
    lookup("Client Relationship", "ConsumerDefaultRelationshipTypeCodes",
           "consumer-default-relationship/@type"),
    person::kCorrectionsLine,
};

constexpr Line kJudgementLines[] = {
    date("Load Date", "load-date"),
    text("Creditor", "creditor"),
    money("Judgement Amount", "judgement-amount"),
    text("Court Type", "court-type"),
    text("Judgement Status", "judgement-status"),
    date("Date Paid", "@date-paid | date-paid"),
    person_name("Name"),
    text("Narrative", "narrative"),
    person::kCorrectionsLine,
};

constexpr Line kBankruptcyLines[] = {
    date("Load Date", "load-date"),
    text("Source", "source"),
    date("Discharged date", "date-discharged"),
    person_name("Name"),
    line("Address", lines::kFirstAddress),
    line("Address 2", lines::kSecondAddress),
    line("Narrative", lines::kNarratives),
    person::kCorrectionsLine,
};

constexpr Line kPublicNoticeLines[] = {
    date("Load Date", "load-date"),
    text("Notice Type", "notice-type"),
    person_name("Name"),
    line("Address", lines::kFirstAddress),
    line("Address 2", lines::kSecondAddress),
    text("Narrative", "narrative"),
    person::kCorrectionsLine,
};

constexpr Piece kLostOrStolenIdText[] = {
    choice_at("@lost-or-stolen", person::kLostOrStolen),
    text_at("id-type"),
    text_at("id-type/@id-detail").within(" (", ")").if_value(),
    choice_at("@reported-to-police", person::kReportedToPolice),
    text_at("issuer").within("\r\n    Issuer: ").if_value(),
    text_at("narrative").within("\r\n    ").if_value(),
    person::kCorrections.within("\r\nCorrections:\r\n").if_value(),
};

constexpr Line kLostOrStolenIdLines[] = {
    line(person::kOnCreateDate, kLostOrStolenIdText),
};

// Where white pages are looked for first.
constexpr std::string_view kWhitePages = "identity-verification[1]/electronic-white-pages[1]";

// Group, word, sub-group, numbering, source, records, lines, identifier: in the order of the
// report. A position of 1 stands where the report has the node once.
constexpr Section kSections[] = {
    {Group::kPerson, "Individual", "Details", Numbering::kNone, kReport, "individual[1]",
     person::kPersonLines},
    {Group::kPerson, "Individual", "Addresses", Numbering::kNone, kReport, "individual[1]/address",
     person::kAddressLines},
    {Group::kPerson, "Individual", "Alias", Numbering::kPosition, kReport, "individual[1]/alias",
     kAliasLines},
    {Group::kPerson, "Individual", "Corrections", Numbering::kNone, kReport, "individual[1]",
     person::kPersonCorrectionsLines},

    {Group::kPrefixed, "Verification", "Property Ownership", Numbering::kNone, kReport,
     "identity-verification[1]/property-ownership[1]/property-ownership-verification-result[1]",
     kPropertyOwnershipLines},
    {Group::kPrefixed, "Verification", "White Pages", Numbering::kNone, kReport, kWhitePages,
     person::kWhitePagesLines},
    {.group = Group::kPrefixed,
     .word = "Verification",
     .sub_group = "White Pages",
     .numbering = Numbering::kNone,
     .source = kReport,
     .records = "verification[1]/electronic-white-pages[1]",
     .lines = person::kWhitePagesLines,
     .without = kWhitePages},
    {Group::kPrefixed, "Verification", "Driver Licence", Numbering::kNone, kReport,
     "identity-verification[1]/driver-licence[1]", person::kDriverLicenceLines},

    {Group::kPrefixed, "Notes", "Note", Numbering::kId, kReport, "note-file/note", kNoteLines,
     "@unique-id"},
    {Group::kPrefixed, "Enquiries", "Enquiry", Numbering::kPosition, kReport,
     "credit-file/credit-enquiry", kEnquiryLines},
    {Group::kPrefixed, "Defaults", "Default", Numbering::kId, kReport, "default-file/default",
     kDefaultLines, "@defaulter-detail-number"},
    {Group::kPrefixed, "Defaults (Collection Agency)", "Default", Numbering::kId, kReport,
     "default-collection-agency-file/default", kDefaultLines, "@defaulter-detail-number"},
    {Group::kPrefixed, "Judgements", "Judgement", Numbering::kId, kReport,
     "judgement-file/judgement", kJudgementLines, "@unique-id"},
    {Group::kPrefixed, "Bankruptcies", "Bankruptcy", Numbering::kId, kReport,
     "bankruptcy-file/bankruptcy", kBankruptcyLines, "@unique-id"},
    {Group::kPrefixed, "Public Notices", "Public Notice", Numbering::kId, kReport,
     "public-notice-file/public-notice", kPublicNoticeLines, "@unique-id"},
    {Group::kPrefixed, "Lost/Stolen Identification", "Lost/Stolen Id", Numbering::kPosition,
     kReport, "lost-stolen-id-file/lost-stolen-id", kLostOrStolenIdLines},
    {Group::kPrefixed, "Company Officers", "Company Officer", Numbering::kPosition, kReport,
     "company-officer-details/company-officer", person::kCompanyOfficeLines},
    {Group::kPrefixed, "Summary", "Summary Data", Numbering::kNone, kReport, "summary-data/summary",
     lines::kSummaryLines},
    // The applicant's and the directors' alike.
    {Group::kPlain, "Score", "Score", Numbering::kNone, kReport, "score-data[1]",
     person::kScoreLines},
};

}  // namespace

std::span<const Section> individual_sections_of_version_2() { return kSections; }

}  // namespace zr::b2bay
