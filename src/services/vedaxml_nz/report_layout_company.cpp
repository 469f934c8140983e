#include "services/vedaxml_nz/company_lines.h"
#include "services/vedaxml_nz/individual_lines.h"
#include "services/vedaxml_nz/report_layout.h"

namespace zr::new_zealand {
namespace {

using namespace company_lines;

constexpr std::uint8_t kCompany = 0;  // the only source

// Group, word, sub-group, numbering, source, records, lines, identifier, merging of runs: in the
// order of the report. A position of 1 stands where the report has the node once.
constexpr Section kSections[] = {
    {Group::kPlain, "Company", "Company Details", Numbering::kNone, kCompany, "company[1]",
     kCompanyLines},
    {Group::kPlain, "Company", "Addresses", Numbering::kNone, kCompany,
     "company[1]/company-address", kAddressLines},
    {Group::kPlain, "Company", "Previous Names", Numbering::kNone, kCompany,
     "company[1]/previous-company-name", kPreviousNameLines},
    {Group::kPlain, "Company Shares", "Shares", Numbering::kNone, kCompany, "company-shares[1]",
     kShareLines},
    {Group::kPlain, "Company Shares", "Shareholder", Numbering::kPosition, kCompany,
     "company-shares[1]/shareholder", kShareholderLines},
    {Group::kPlain, "Company Officers", "Officer", Numbering::kPosition, kCompany,
     "company-officers/officer-details", kOfficerLines},
    {Group::kPlain, "Documents", "Document", Numbering::kPosition, kCompany,
     "document-history/document-details", kDocumentLines},
    {Group::kPlain, "Credit References", "Credit Reference", Numbering::kPosition, kCompany,
     "company-credit-reference-file/company-credit-reference", kCreditReferenceLines},
    {Group::kPlain, "Public Notices", "Public Notice", Numbering::kTrimmedId, kCompany,
     "company-public-notice-file/company-public-notice", kPublicNoticeLines, "@unique-id",
     Runs::kById},
    {Group::kPlain, "Enquiries", "Enquiry", Numbering::kPosition, kCompany,
     "company-credit-file/company-credit-enquirer", kEnquiryLines},
    {Group::kPlain, "Defaults", "Default", Numbering::kId, kCompany,
     "company-default-file/company-default", kDefaultLines, "@unique-id"},
    {Group::kPlain, "Judgements", "Judgement", Numbering::kId, kCompany,
     "company-judgement-file/company-judgement", kJudgementLines, "@unique-id"},
    {Group::kPlain, "Affiliations", "Affiliation", Numbering::kPosition, kCompany,
     "known-affiliation/affiliated-company", kAffiliationLines},
    {Group::kPlain, "Summary", "Summary Data", Numbering::kNone, kCompany, "summary-data/summary",
     lines::kSummaryLines},
};

}  // namespace

std::span<const Section> company_sections() { return kSections; }

}  // namespace zr::new_zealand
