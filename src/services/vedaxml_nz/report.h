// The New Zealand report: where a reply has it, how it is laid out, and what is counted.
#pragma once

#include <string>

#include "services/report_definition.h"

namespace zr::new_zealand {

/// The report of the VedaXML gateway.
ReportDefinition report();

// Its sections, those of a person and those of a company, each in a file of its own.
layout::Sections person_sections();
layout::Sections company_sections();

/// What sections of a person start from: the enquiry report or a director's, the LicenceCheck
/// report, or the report on court fines.
inline constexpr std::uint8_t kReport = 0;
inline constexpr std::uint8_t kLicence = 1;
inline constexpr std::uint8_t kFines = 2;

/// A content error of a reply in the bureau's words.
std::string content_error(const ReplyCheckPaths& paths, XmlNode error);

// Rows that are counted alike of several New Zealand reports.
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

}  // namespace zr::new_zealand
