#include "services/b2bay/company_lines_nz.h"
#include "services/b2bay/report_tables_nz.h"
#include "services/vedaxml_nz/company_lines.h"

namespace zr::b2bay {
namespace {

using namespace layout;

// The lines that the VedaXML reports have, too.
namespace company = new_zealand::company_lines;

constexpr std::uint8_t kRoot = 0;  // the only source

constexpr Line kPreviousNameLines[] = {
    text(Pieces{constant("From "), date_at("@name-start-date")}, "."),
};

constexpr Line kOfficerLines[] = {
    text("Type", "@type"),
    person_name("Name"),
    text("Occupation", "occupation"),
    line("Address", company::kAddressText),
};

constexpr Line kCreditReferenceLines[] = {
    date("Created date", "@create-date"),
    text("Supplier Industry", "supplier-industry"),
    money("Turnover Amount", "turnover-amount"),
    text("Terms of Trade", "terms-of-trade"),
    date("Account Opened", "@account-opened-date"),
    text("Referee Name", "referee-name"),
    text("Referee Phone", "referee-phone-number"),
    line("Narrative", lines_at("comment/narrative")),
};

constexpr Line kDocumentLines[] = {
    date("Date Registered", "create-date-registered"),
    text("Bar Code", "bar-code"),
    text("Document Name", "document-name"),
};

constexpr Line kDefaultLines[] = {
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
};

constexpr Line kCollectionLines[] = {
    date("Created date", "@create-date"),
    text("Creditor", "creditor"),
    text("Collection Status", "collection-status"),
    money("Collection Amount", "collection-amount"),
    money("Collection Balance", "collection-balance"),
};

constexpr Line kChargeLines[] = {
    date("Created date", "@create-date"),
    date("Registered date", "@registered-date"),
    text("Charge Type", "charge-type"),
    text("Charge Status", "charge-status"),
    money("Secured Amount", "secured-amount"),
    text("Secured Amount Description", "secured-amount-description"),
    text("Chargeholder Name", "chargeholder-name"),
    text("Chargeholder Name (additional)", "additional-charge-holder-name"),
    text("Property Charged", "property-charged"),
};

// Group, word, sub-group, numbering, source, records, lines, identifier, merging of runs: in the
// order of the report. A position of 1 stands where the report has the node once.
constexpr Section kSections[] = {
    {Group::kPlain, "Company", "Company Details", Numbering::kNone, kRoot, "company[1]",
     company::kCompanyLines},
    {Group::kPlain, "Company", "Addresses", Numbering::kNone, kRoot, "company[1]/company-address",
     company::kAddressLines},
    {Group::kPlain, "Company", "Previous Names", Numbering::kNone, kRoot,
     "company[1]/previous-company-name", kPreviousNameLines},
    {Group::kPlain, "Company Shares", "Shares", Numbering::kNone, kRoot, "company-shares[1]",
     company::kShareLines},
    {Group::kPlain, "Company Shares", "Shareholder", Numbering::kPosition, kRoot,
     "company-shares[1]/shareholder", company::kShareholderLines},
    {Group::kPlain, "Company Officers", "Officer", Numbering::kPosition, kRoot,
     "company-officers/officer-details", kOfficerLines},
    {Group::kPlain, "Credit References", "Credit Reference", Numbering::kPosition, kRoot,
     "company-credit-reference-file/company-credit-reference", kCreditReferenceLines},
    {Group::kPlain, "Documents", "Document", Numbering::kPosition, kRoot,
     "document-history/document-details", kDocumentLines},
    {Group::kPlain, "Public Notices", "Public Notice", Numbering::kTrimmedId, kRoot,
     "company-public-notice-file/company-public-notice", company::kPublicNoticeLines, "@unique-id",
     Runs::kByText},
    {Group::kPlain, "Enquiries", "Enquiry", Numbering::kPosition, kRoot,
     "company-credit-file/company-credit-enquirer", company::kEnquiryLines},
    {Group::kPlain, "Defaults", "Default", Numbering::kPosition, kRoot,
     "company-default-file/company-default", kDefaultLines},
    {Group::kPlain, "Collections", "Collection", Numbering::kPosition, kRoot,
     "company-collection-file/company-collection", kCollectionLines},
    {Group::kPlain, "Judgements", "Judgement", Numbering::kPosition, kRoot,
     "company-judgement-file/company-judgement", company::kJudgementLines},
    {Group::kPlain, "Registered Charges", "Registered Charge", Numbering::kPosition, kRoot,
     "registered-charge-file/registered-charge", kChargeLines},
    {Group::kPlain, "Mercantile Gazette Notices", "Mercantile Gazette", Numbering::kPosition, kRoot,
     "mercantile-gazette-file/company-mercantile-gazette", lines::kGazetteLines},
    {Group::kPlain, "Affiliations", "Affiliation", Numbering::kPosition, kRoot,
     "known-affiliation/affiliated-company", company::kAffiliationLines},
};

}  // namespace

std::span<const Section> company_sections() { return kSections; }

}  // namespace zr::b2bay
