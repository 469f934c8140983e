#include "services/b2bay/report_layout_au.h"

#include "services/b2bay/summary_lines.h"
#include "services/vedaxml_au/sections.h"
#include "services/vedaxml_au/statistics.h"

namespace zr::b2bay {
namespace {

namespace sections = australia::sections;
using australia::kMatch;
using australia::kReport;
using namespace australia::lines;    // lines that the VedaXML reports have, too
using namespace australia::counted;  // rows that the VedaXML statistics have, too

// Dates that one layout of the bureau has as attributes and another as elements.
constexpr std::string_view kCreateDate = "@create-date | create-date";

constexpr Line kB2BayAddressLines[] = {
    line(Pieces{text_at("@type"), date_at(kCreateDate).within(" (", ")")}, kAddressText),
};

constexpr Line kB2BayEmploymentLines[] = {
    text(Pieces{constant("Employer"), date_at(kCreateDate).within(" (", ")")}, "employer"),
    text("Occupation", "occupation"),
};

constexpr Line kB2BayNoteLines[] = {
    text(Pieces{constant("On "), date_at("@date-recorded | date-recorded")}, "."),
};

constexpr Line kB2BayCurrentProviderLines[] = {
    line(Pieces{constant("On "), date_at("@date-provided | date-provided")}, kCurrentProvider),
};

constexpr Section with_lines(Section section, std::span<const Line> lines) {
    section.lines = lines;
    return section;
}

// A role's words; its type where it has none.
constexpr Case kRole[] = {
    {"", text_at("role/@type")},
    otherwise(text_at("role")),
};
constexpr Case kAccountRole[] = {
    {"", text_at("account-details/role/@type")},
    otherwise(text_at("account-details/role")),
};

constexpr auto kB2BayDefaultLines =
    with(kDefaultLines,
         line("Account Type",
              Pieces{text_at("account-details/account-type"),
                     choice_at("account-details/role", kAccountRole).within(" as ").if_value()}));

constexpr auto kB2BayConsumerEnquiryLines =
    with(kConsumerEnquiryLines,
         line("Account Type",
              Pieces{text_at("account-type"), choice_at("role", kRole).within(" as ").if_value()}));

constexpr Line number_or_text(const Pieces& label, std::string_view path) {
    return line(label, of(Form::kNumberText, path));
}

constexpr Line kB2BayScoreLines[] = {
    text("Type", "score/@type"),
    text("Scorecard", "score/scorecard-name"),
    number_or_text("Relative Risk", "score/relative-risk"),
    number_or_text("Relative Risk Index", "score/relative-risk-index"),
    number_or_text("Risk Odds", "score/risk-odds"),
    line_for_each("score/risk-factor", text_at(".").within("", " risk"),
                  Pieces{text_at("@impact-level"), text_at("@impact-effect").joined(" ")}),
    text("Population", "score/population/@population-name | score/population/population-name"),
    number_or_text("Population Odds",
                   "score/population/@population-odds | score/population/population-odds"),
};

// The score's own, or else that beside it.
constexpr std::string_view kAreaLevelRiskOfScore = "score-data[1]/area-level-risk/@indicator";
constexpr Case kAreaLevelRisk[] = {
    {"", text_at("area-level-risk/@indicator")},
    otherwise(text_at(kAreaLevelRiskOfScore)),
};
constexpr Line kB2BayAreaLevelRiskLines[] = {
    line("Area Level Risk", choice_at(kAreaLevelRiskOfScore, kAreaLevelRisk)),
};

// Group, word, sub-group, numbering, source, records, lines: in the order of the report. The file
// messages' word begins with a blank of its own.
constexpr Section kSections[] = {
    {Group::kPerson, "Individual", "Details", Numbering::kNone, kMatch, "individual[1]",
     kPersonLines},
    {Group::kPerson, "Individual", "Addresses", Numbering::kNone, kMatch, "individual[1]/address",
     kB2BayAddressLines},
    {Group::kPerson, "Individual", "Employment", Numbering::kPosition, kMatch,
     "individual[1]/employment", kB2BayEmploymentLines},

    sections::kConsumerCrossReferences,
    {Group::kPrefixed, "Consumer Defaults", "Default", Numbering::kPosition, kMatch,
     "individual-consumer-credit-file/default", kB2BayDefaultLines},
    with_lines(sections::kConsumerNotes, kB2BayNoteLines),
    with_lines(sections::kConsumerCurrentCreditProviders, kB2BayCurrentProviderLines),
    {Group::kPrefixed, "Consumer Enquiries", "Consumer Enquiry", Numbering::kPosition, kMatch,
     "individual-consumer-credit-file/credit-enquiry", kB2BayConsumerEnquiryLines},
    {Group::kPrefixed, "Consumer  File Messages", "Message", Numbering::kPosition, kMatch,
     "individual-consumer-credit-file/file-message", kMessageLines},

    sections::kCommercialCrossReferences,
    {Group::kPrefixed, "Commercial Defaults", "Default", Numbering::kPosition, kMatch,
     "individual-commercial-credit-file/default", kB2BayDefaultLines},
    with_lines(sections::kCommercialNotes, kB2BayNoteLines),
    with_lines(sections::kCommercialCurrentCreditProviders, kB2BayCurrentProviderLines),
    sections::kCommercialEnquiries,
    {Group::kPrefixed, "Commercial  File Messages", "Message", Numbering::kPosition, kMatch,
     "individual-commercial-credit-file/file-message", kMessageLines},

    sections::kDirectorships,
    sections::kDisqualifiedDirectorships,
    sections::kProprietorships,
    sections::kBankruptcies,
    sections::kCourtActions,
    sections::kPublicFileDataMessages,

    // These belong to the report rather than to the match; the score's group has no prefix.
    {Group::kPrefixed, "Summary", "Summary Data", Numbering::kNone, kReport, "summary-data/summary",
     b2bay::lines::kSummaryLines},
    {Group::kPlain, "Score", "Score", Numbering::kNone, kReport, "score-data[1]", kB2BayScoreLines},
    {Group::kPlain, "Score", "Score", Numbering::kNone, kReport, ".", kB2BayAreaLevelRiskLines},
};

constexpr StatisticsCategory kCategories[] = {
    kBankruptcies,
    kDefaults,
    kEnquiries,
    // Court actions of any other type are not counted; what is owed is not, either.
    {.family = RecordFamily::kJudgement,
     .records = "individual-public-data-file/court-action",
     .only_path = "@type",
     .only_value = "default-judgement",
     .event_date = "action-date",
     .loaded = "court-action-amount"},
};

// Family, sub-group, label of the open count, "None" when it is 0.
constexpr SummaryBlock kQuickSummary[] = {
    {RecordFamily::kEnquiry, "Enquiries", "", false},
    {RecordFamily::kDefault, "Defaults", "Not Paid", true},
    {RecordFamily::kJudgement, "Judgements", "", false},
    {RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", true},
};

constexpr SummaryBlock kStatistics[] = {
    {RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", true},
    {RecordFamily::kJudgement, "Judgements", "", false},
    {RecordFamily::kDefault, "Defaults", "Not Paid", true},
    {RecordFamily::kEnquiry, "Enquiries", "", false},
};

}  // namespace

std::span<const Section> australian_sections() { return kSections; }
std::span<const StatisticsCategory> australian_categories() { return kCategories; }
std::span<const SummaryBlock> australian_quick_summary() { return kQuickSummary; }
std::span<const SummaryBlock> australian_statistics() { return kStatistics; }

}  // namespace zr::b2bay
