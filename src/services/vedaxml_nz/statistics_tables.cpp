#include "services/vedaxml_nz/statistics_tables.h"

#include "services/vedaxml_nz/statistics.h"

namespace zr::new_zealand {
namespace {

using namespace counted;  // the rows that the tables below are made of

constexpr std::string_view kInsolvencies = "insolvency-file/insolvency";

// The insolvency types that are bankruptcies.
constexpr std::string_view kBankruptcyTypes[] = {"TYPNP", "TYPRM", "TYPSO",
                                                 "TYPVL", "TYPCL", "TYPIL"};

constexpr StatisticsCategory in_place_of_insolvencies(StatisticsCategory category) {
    category.instead_of = kInsolvencies;
    return category;
}

constexpr StatisticsCategory kIndividual[] = {
    {.family = RecordFamily::kBankruptcy,
     .records = kInsolvencies,
     .only_path = "insolvency-type/@code",
     .only_codes = kBankruptcyTypes,
     .event_date = "adjudication-date",
     .open = Open::kUnlessNode,
     .status_path = "discharged-date"},
    in_place_of_insolvencies(kBankruptcies),
    kDefaults,
    kCollections,
    kEnquiries,
    {.family = RecordFamily::kJudgement,
     .records = "judgement-file/judgement",
     .event_date = "load-date",
     .loaded = "judgement-amount",
     .outstanding = "judgement-amount",
     .settled_path = "judgement-status/@code",
     .settled_by_any_code = true},
    kPublicNotices,
};

constexpr StatisticsCategory kCompany[] = {
    kCompanyDefaults,
    kCompanyEnquiries,
    kCompanyJudgements,
    kCompanyPublicNotices,
};

// Family, sub-group, label of the open count, "None" when it is 0, only of companies.
constexpr SummaryBlock kStatistics[] = {
    {RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", true},
    {RecordFamily::kJudgement, "Judgements", "Not Paid", false},
    {RecordFamily::kDefault, "Defaults", "Not Paid", true},
    {RecordFamily::kCollection, "Default Collections", "Not Paid", true},
    {RecordFamily::kPublicNotice, "Public Notices", "Adverse", true, true},
    {RecordFamily::kEnquiry, "Enquiries", "", false},
};

}  // namespace

std::span<const StatisticsCategory> individual_categories() { return kIndividual; }
std::span<const StatisticsCategory> company_categories() { return kCompany; }
std::span<const SummaryBlock> statistics_blocks() { return kStatistics; }

}  // namespace zr::new_zealand
