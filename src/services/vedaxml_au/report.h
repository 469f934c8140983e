// The Australian report: where a reply has it, how it is laid out, and what is counted.
#pragma once

#include <string_view>

#include "services/report_definition.h"

namespace zr::australia {

/// What an Australian report has different from one interface of the bureau to another.
struct Variation {
    std::string_view address_created;
    layout::Piece employer_since;
    std::string_view note_recorded;
    std::string_view provider_since;
    std::string_view consumer_messages;
    std::string_view commercial_messages;
    layout::Text default_account_type;
    layout::Text consumer_account_type;
    layout::Lines summary;
    layout::Lines score;
    layout::Section area_level_risk;
};

layout::Sections sections(const Variation& variation);

/// The report of the VedaXML gateway.
ReportDefinition report();

// Rows that are counted alike of every Australian report, under the matched file.
namespace counted {
inline constexpr StatisticsCategory kBankruptcies{
    .family = RecordFamily::kBankruptcy,
    .records = "individual-public-data-file/bankruptcy",
    .event_date = "date-declared",
    .open = Open::kUnlessStatus,
    .status_path = "discharge-status/@type",
    .statuses = {"DISCHARGED", "COMPLETED"}};
// The consumer and the commercial file count together.
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

/// What sections start from: the matched file, primary or possible, or the enquiry report.
inline constexpr std::uint8_t kMatch = 0;
inline constexpr std::uint8_t kReport = 1;

}  // namespace zr::australia
