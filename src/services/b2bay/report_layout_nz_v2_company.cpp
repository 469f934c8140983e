#include "services/b2bay/company_lines_nz.h"
#include "services/b2bay/report_tables_nz.h"
#include "services/b2bay/summary_lines.h"
#include "services/vedaxml_nz/company_lines.h"

namespace zr::b2bay {
namespace {

using namespace layout;

// The lines that the VedaXML reports have, too.
namespace company = new_zealand::company_lines;

constexpr std::uint8_t kRoot = 0;  // the only source

constexpr Line kDocumentLines[] = {
    line(Pieces{constant("On "), date_at("date-registered")},
         Pieces{text_at("document-name"), text_at("barcode").within(" (barcode ", ")").if_value()}),
};

// Dates that one layout of the bureau has as attributes and another as elements.
constexpr std::string_view kAccountOpened = "@date-account-opened | date-account-opened";
constexpr std::string_view kLastUpdate =
    "@last-update-date | company-default-status/@last-update-date";

constexpr Line kDefaultLines[] = {
    date("Created date", "@create-date"),
    text("Credit Provider", "credit-provider"),
    date("Date Account opened", kAccountOpened),
    text("Account Terms", "account-terms"),
    line("Default Status", Pieces{text_at("company-default-status"),
                                  date_at(kLastUpdate).within(" (last updated ", ")").if_value()}),
    date("Last Update date", kLastUpdate),
    date("Date Paid", "date-paid"),
    money("Default Amount", "default-amount"),
    money("Default Balance", "default-balance"),
    line("Address", company::kAddressText),
    person_name("Company Officer", "company-officer"),
    text("Narrative", "narrative"),
};

// Group, word, sub-group, numbering, source, records, lines, identifier, merging of runs: in the
// order of the report. A position of 1 stands where the report has the node once.
constexpr Section kSections[] = {
    {Group::kPlain, "Company", "Company Details", Numbering::kNone, kRoot, "company[1]",
     company::kCompanyLines},
    {Group::kPlain, "Company", "Addresses", Numbering::kNone, kRoot, "company[1]/company-address",
     company::kAddressLines},
    {Group::kPlain, "Company", "Previous Names", Numbering::kNone, kRoot,
     "company[1]/previous-company-name", company::kPreviousNameLines},
    {Group::kPlain, "Company Shares", "Shares", Numbering::kNone, kRoot, "company-shares[1]",
     company::kShareLines},
    {Group::kPlain, "Company Shares", "Shareholder", Numbering::kPosition, kRoot,
     "company-shares[1]/shareholder", company::kShareholderLines},
    {Group::kPlain, "Company Officers", "Officer", Numbering::kPosition, kRoot,
     "company-officers/officer-details", company::kOfficerLines},
    {Group::kPlain, "Documents", "Document", Numbering::kPosition, kRoot,
     "document-history/document-details", kDocumentLines},
    {Group::kPlain, "Credit References", "Credit Reference", Numbering::kPosition, kRoot,
     "company-credit-reference-file/company-credit-reference", company::kCreditReferenceLines},
    {Group::kPlain, "Public Notices", "Public Notice", Numbering::kTrimmedId, kRoot,
     "company-public-notice-file/company-public-notice", company::kPublicNoticeLines, "@unique-id",
     Runs::kByFilledId},
    {Group::kPlain, "Enquiries", "Enquiry", Numbering::kPosition, kRoot,
     "company-credit-file/company-credit-enquirer", company::kEnquiryLines},
    {Group::kPlain, "Defaults", "Default", Numbering::kId, kRoot,
     "company-default-file/company-default", kDefaultLines, "@unique-id"},
    {Group::kPlain, "Judgements", "Judgement", Numbering::kId, kRoot,
     "company-judgement-file/company-judgement", company::kJudgementLines, "@unique-id"},
    {Group::kPlain, "Mercantile Gazette Notices", "Mercantile Gazette", Numbering::kId, kRoot,
     "mercantile-gazette-file/company-mercantile-gazette", lines::kGazetteLines, "@unique-id"},
    {Group::kPlain, "Affiliations", "Affiliation", Numbering::kPosition, kRoot,
     "known-affiliation/affiliated-company", company::kAffiliationLines},
    {Group::kPlain, "Summary", "Summary Data", Numbering::kNone, kRoot, "summary-data/summary",
     lines::kSummaryLines},
};

}  // namespace

std::span<const Section> company_sections_of_version_2() { return kSections; }

}  // namespace zr::b2bay
