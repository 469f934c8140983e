#include "services/vedaxml_au/report_layout.h"

#include "services/vedaxml_au/sections.h"
#include "services/vedaxml_au/statistics.h"

namespace zr::australia {
namespace {

using namespace lines;    // the lines of the sections below
using namespace counted;  // the rows of the categories below

// Group, word, sub-group, numbering, source, records, lines: in the order of the report. A position
// of 1 stands where the report has the node once.
constexpr Section kSections[] = {
    {Group::kPerson, "Individual", "Details", Numbering::kNone, kMatch, "individual[1]",
     kPersonLines},
    {Group::kPerson, "Individual", "Addresses", Numbering::kNone, kMatch, "individual[1]/address",
     kAddressLines},
    {Group::kPerson, "Individual", "Employment", Numbering::kPosition, kMatch,
     "individual[1]/employment", kEmploymentLines},

    sections::kConsumerCrossReferences,
    {Group::kPrefixed, "Consumer Defaults", "Default", Numbering::kPosition, kMatch,
     "individual-consumer-credit-file/default", kDefaultLines},
    sections::kConsumerNotes,
    sections::kConsumerCurrentCreditProviders,
    {Group::kPrefixed, "Consumer Enquiries", "Consumer Enquiry", Numbering::kPosition, kMatch,
     "individual-consumer-credit-file/credit-enquiry", kConsumerEnquiryLines},
    {Group::kPrefixed, "Consumer File Messages", "Message", Numbering::kPosition, kMatch,
     "individual-consumer-credit-file/file-message", kMessageLines},

    sections::kCommercialCrossReferences,
    {Group::kPrefixed, "Commercial Defaults", "Default", Numbering::kPosition, kMatch,
     "individual-commercial-credit-file/default", kDefaultLines},
    sections::kCommercialNotes,
    sections::kCommercialCurrentCreditProviders,
    sections::kCommercialEnquiries,
    {Group::kPrefixed, "Commercial File Messages", "Message", Numbering::kPosition, kMatch,
     "individual-commercial-credit-file/file-message", kMessageLines},

    sections::kDirectorships,
    sections::kDisqualifiedDirectorships,
    sections::kProprietorships,
    sections::kBankruptcies,
    sections::kCourtActions,
    sections::kPublicFileDataMessages,

    // These belong to the report rather than to the match; the score's group has no prefix.
    {Group::kPrefixed, "Summary", "Summary Data", Numbering::kNone, kReport, "summary-data/summary",
     kSummaryLines},
    {Group::kPlain, "Score", "Score", Numbering::kNone, kReport, "score-data[1]", kScoreLines},
    {Group::kPlain, "Score", "Score", Numbering::kNone, kReport, "area-level-risk[1]",
     kAreaLevelRiskLines},
};

constexpr StatisticsCategory kCategories[] = {
    kBankruptcies,
    kDefaults,
    kEnquiries,
    {.family = RecordFamily::kJudgement,
     .records = "individual-public-data-file/court-action",
     .only_path = "@type",
     .only_value = "default-judgement",
     .event_date = "action-date",
     .loaded = "court-action-amount",
     .outstanding = "court-action-amount",
     .settled_path = "court-action-status/@code",
     .settled_codes = {"D", "P", "S"}},
    // Writs and summonses: every other court action.
    {.family = RecordFamily::kCollection,
     .records = "individual-public-data-file/court-action",
     .only_path = "@type",
     .only_value = "default-judgement",
     .only_others = true,
     .event_date = "action-date",
     .loaded = "court-action-amount",
     .outstanding = "court-action-amount",
     .settled_path = "court-action-status/@code",
     .settled_codes = {"D", "P", "S"}},
};

// The blank after the slash is the statistics' own.
constexpr SummaryBlock kQuickSummary[] = {
    {RecordFamily::kEnquiry, "Enquiries", "", false},
    {RecordFamily::kDefault, "Defaults", "Not Paid", true},
    {RecordFamily::kCollection, "Court Writs/Summons", "", false},
    {RecordFamily::kJudgement, "Judgements", "", false},
    {RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", true},
};

constexpr SummaryBlock kStatistics[] = {
    {RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", false},
    {RecordFamily::kJudgement, "Judgements", "Not Paid", false},
    {RecordFamily::kCollection, "Court Writs/ Summons", "Not Paid", false},
    {RecordFamily::kDefault, "Defaults", "Not Paid", false},
    {RecordFamily::kEnquiry, "Enquiries", "", false},
};

}  // namespace

std::span<const Section> report_sections() { return kSections; }
std::span<const StatisticsCategory> statistics_categories() { return kCategories; }
std::span<const SummaryBlock> quick_summary() { return kQuickSummary; }
std::span<const SummaryBlock> statistics_blocks() { return kStatistics; }

}  // namespace zr::australia
