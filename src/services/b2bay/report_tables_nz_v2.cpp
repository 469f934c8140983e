#include "services/b2bay/report_tables_nz.h"
#include "services/vedaxml_nz/statistics.h"

namespace zr::b2bay {
namespace {

using namespace new_zealand::counted;  // rows that the VedaXML statistics have, too

constexpr StatisticsCategory kIndividual[] = {
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
    kPublicNotices,
};

constexpr StatisticsCategory with_runs(StatisticsCategory category, Runs runs) {
    category.runs = runs;
    return category;
}

constexpr StatisticsCategory kCompany[] = {
    kCompanyDefaults,
    kCompanyEnquiries,
    kCompanyJudgements,
    with_runs(kCompanyPublicNotices, Runs::kByFilledId),
};

// Family, sub-group, label of the open count, "None" when it is 0.
constexpr SummaryBlock kStatistics[] = {
    {RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", true},
    {RecordFamily::kJudgement, "Judgements", "", false},
    {RecordFamily::kDefault, "Defaults", "Not Paid", true},
    {RecordFamily::kCollection, "Default Collections", "Not Paid", true},
    {RecordFamily::kPublicNotice, "Public Notices", "Adverse", true},
    {RecordFamily::kEnquiry, "Enquiries", "", false},
};

}  // namespace

const ReportTables& version_2() {
    static const ReportTables kTables{
        .individual_fields = {},
        .individual_sections = individual_sections_of_version_2(),
        .company_sections = company_sections_of_version_2(),
        .individual_categories = kIndividual,
        .company_categories = kCompany,
        .individual_quick_summary = new_zealand::kIndividualQuickSummary,
        .company_quick_summary = new_zealand::kCompanyQuickSummary,
        .directors_quick_summary = true,
        .statistics = kStatistics};
    return kTables;
}

}  // namespace zr::b2bay
