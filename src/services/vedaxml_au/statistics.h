// What is counted of Australian reports: rows that each service makes its tables of.
#pragma once

#include "reports/statistics.h"

namespace zr::australia {

namespace counted {

// Under the matched file. The consumer and the commercial file count together.
inline constexpr StatisticsCategory kBankruptcies{
    .family = RecordFamily::kBankruptcy,
    .records = "individual-public-data-file/bankruptcy",
    .event_date = "date-declared",
    .open = Open::kUnlessStatus,
    .status_path = "discharge-status/@type",
    .statuses = {"DISCHARGED", "COMPLETED"}};
inline constexpr StatisticsCategory kDefaults{
    .family = RecordFamily::kDefault,
    .records = "(individual-consumer-credit-file | individual-commercial-credit-file)/default",
    .event_date = "original-default/date-recorded",
    .loaded = "original-default/default-amount",
    .outstanding = "current-default/default-amount",
    .settled_path = "account-details/default-status/@code",
    .settled_codes = {"P", "S"}};
inline constexpr StatisticsCategory kEnquiries{
    .family = RecordFamily::kEnquiry,
    .records =
        "(individual-consumer-credit-file | individual-commercial-credit-file)/credit-enquiry",
    .event_date = "@enquiry-date"};

}  // namespace counted
}  // namespace zr::australia
