// What is counted of New Zealand reports, and the summary lines that show it: rows that each
// service makes its tables of.
#pragma once

#include "reports/statistics.h"

namespace zr::new_zealand {

namespace counted {

// Of a person, under the enquiry report or a director's report.
inline constexpr StatisticsCategory kBankruptcies{.family = RecordFamily::kBankruptcy,
                                                  .records = "bankruptcy-file/bankruptcy",
                                                  .event_date = "load-date",
                                                  .open = Open::kUnlessNode,
                                                  .status_path = "date-discharged"};
inline constexpr StatisticsCategory kDefaults{.family = RecordFamily::kDefault,
                                              .records = "default-file/default",
                                              .event_date = "load-date",
                                              .loaded = "default-original-amount",
                                              .outstanding = "default-balance-amount"};
inline constexpr StatisticsCategory kCollections{
    .family = RecordFamily::kCollection,
    .records = "default-collection-agency-file/default",
    .event_date = "load-date",
    .loaded = "default-original-amount",
    .outstanding = "default-balance-amount"};
inline constexpr StatisticsCategory kEnquiries{.family = RecordFamily::kEnquiry,
                                               .records = "credit-file/credit-enquiry",
                                               .event_date = "@create-date"};
inline constexpr StatisticsCategory kPublicNotices{.family = RecordFamily::kPublicNotice,
                                                   .records = "public-notice-file/public-notice",
                                                   .event_date = "load-date"};

// Of a company. Its judgements have no unpaid count and no balance.
inline constexpr StatisticsCategory kCompanyDefaults{
    .family = RecordFamily::kDefault,
    .records = "company-default-file/company-default",
    .event_date = "@create-date",
    .loaded = "default-amount",
    .outstanding = "default-balance"};
inline constexpr StatisticsCategory kCompanyEnquiries{
    .family = RecordFamily::kEnquiry,
    .records = "company-credit-file/company-credit-enquirer",
    .event_date = "@enquiry-date"};
inline constexpr StatisticsCategory kCompanyJudgements{
    .family = RecordFamily::kJudgement,
    .records = "company-judgement-file/company-judgement",
    .event_date = "publication-date",
    .loaded = "judgement-amount"};
inline constexpr StatisticsCategory kCompanyPublicNotices{
    .family = RecordFamily::kPublicNotice,
    .records = "company-public-notice-file/company-public-notice",
    .run_id = "@unique-id",
    .runs = Runs::kById,
    .event_date = "@create-date",
    .open = Open::kIfStatus,
    .status_path = "adverse/@indicator",
    .statuses = {"YES"}};

}  // namespace counted

// Family, sub-group, label of the open count, "None" when it is 0.
inline constexpr SummaryBlock kIndividualQuickSummary[] = {
    {RecordFamily::kEnquiry, "Enquiries", "", false},
    {RecordFamily::kDefault, "Defaults", "Not Paid", true},
    {RecordFamily::kCollection, "Default Collections", "Not Paid", true},
    {RecordFamily::kJudgement, "Judgements", "", false},
    {RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", true},
    {RecordFamily::kPublicNotice, "Public Notices", "", false},
};

inline constexpr SummaryBlock kCompanyQuickSummary[] = {
    {RecordFamily::kEnquiry, "Enquiries", "", false},
    {RecordFamily::kDefault, "Defaults", "Not Paid", true},
    {RecordFamily::kJudgement, "Judgements", "", false},
    {RecordFamily::kPublicNotice, "Public Notices", "Adverse", true},
};

inline constexpr SummaryBlock kDirectorsQuickSummary[] = {
    {RecordFamily::kEnquiry, "Enquiries (incl Directors)", "", false},
    {RecordFamily::kDefault, "Defaults (incl Directors)", "Not Paid", true},
    {RecordFamily::kCollection, "Collections (Directors)", "", false},
    {RecordFamily::kJudgement, "Judgements (incl Directors)", "", false},
    {RecordFamily::kBankruptcy, "Bankruptcy (Directors)", "Undischarged", true},
};

}  // namespace zr::new_zealand
