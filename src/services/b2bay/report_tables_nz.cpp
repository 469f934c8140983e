#include "services/b2bay/report_tables_nz.h"

#include "services/vedaxml_nz/statistics.h"

namespace zr::b2bay {
namespace {

using namespace new_zealand::counted;  // rows that the VedaXML statistics have, too

constexpr ResponseFieldRow kIndividualFields[] = {
    {&Response::MaritalStatus, "marital-status/@type"},
    {&Response::Employer, "employment[1]/employer"},
    {&Response::Occupation, "employment[1]/occupation"},
};

constexpr StatisticsCategory kIndividual[] = {
    {.family = RecordFamily::kBankruptcy,
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
     .loaded = "judgement-amount"},
};

// A company's collections and judgements have no amounts.
constexpr StatisticsCategory kCompany[] = {
    kCompanyEnquiries,
    kCompanyDefaults,
    {.family = RecordFamily::kCollection,
     .records = "company-collection-file/company-collection",
     .event_date = "@create-date"},
    {.family = RecordFamily::kJudgement,
     .records = "company-judgement-file/company-judgement",
     .event_date = "publication-date"},
};

// Family, sub-group, label of the open count, "None" when it is 0.
constexpr SummaryBlock kQuickSummary[] = {
    {RecordFamily::kEnquiry, "Enquiries", "", false},
    {RecordFamily::kDefault, "Defaults", "Not Paid", true},
    {RecordFamily::kCollection, "Collections", "", false},
    {RecordFamily::kJudgement, "Judgements", "", false},
    {RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", true},
};

constexpr SummaryBlock kStatistics[] = {
    {RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", true},
    {RecordFamily::kJudgement, "Judgements", "", false},
    {RecordFamily::kCollection, "Collections", "", false},
    {RecordFamily::kDefault, "Defaults", "Not Paid", true},
    {RecordFamily::kEnquiry, "Enquiries", "", false},
};

}  // namespace

const ReportTables& version_1() {
    static const ReportTables kTables{.individual_fields = kIndividualFields,
                                      .individual_sections = individual_sections(),
                                      .company_sections = company_sections(),
                                      .individual_categories = kIndividual,
                                      .company_categories = kCompany,
                                      .individual_quick_summary = kQuickSummary,
                                      .company_quick_summary = {},
                                      .directors_quick_summary = false,
                                      .statistics = kStatistics};
    return kTables;
}

}  // namespace zr::b2bay
