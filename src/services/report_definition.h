// A service's report as one definition: where a reply has the person, the company and its
// directors, which fields they fill, what is counted, and how the report is laid out. translator.h
// reads replies by it. "" stands wherever a report has no such thing.
#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "reports/layout.h"
#include "reports/record_fields.h"
#include "reports/statistics.h"
#include "reports/writer.h"
#include "services/reply_checks.h"
#include "xml/zr_xml_utilities.h"
#include "zrcreditbureau/response.h"

namespace zr {

/// The enquiry report, which paths of a definition are relative to where nothing else is said.
inline constexpr std::string_view kEnquiryReport =
    "/BCAmessage/BCAservices/BCAservice/BCAservice-data/response/enquiry-report";

/// What is counted of a person or a company, the counts that stand first, and the sections.
struct ReportPart {
    std::vector<StatisticsCategory> counted;
    std::vector<SummaryBlock> quick_summary;
    layout::Sections sections;
};

/// The bureau's file, under the report on the subject.
struct FileFields {
    std::string_view node;         ///< the file's lines are written when it is there
    std::string_view number;       ///< under it
    std::string_view match_type;   ///< under it
    bool upper_case_type = false;  ///< how the match type's line shows it
};

/// Who the person is, under the report on the person.
struct PersonFields {
    std::string_view node = "individual";
    std::vector<FieldRow<Response>> fields;
    std::string_view current_address;                ///< under the node
    std::vector<FieldRow<Response>> address_fields;  ///< under the address
    bool unit_in_street_number = false;              ///< "7/12" is unit 7 of number 12
};

/// A report on a company, alone or together with its directors.
struct CompanyReport {
    std::string_view mark_alone;  ///< what tells that there is a company alone
    std::string_view alone;       ///< and its report
    std::string_view mark_with_directors;
    std::string_view with_directors;
    std::string_view directors;  ///< each is a report on a person
    /// Whether files and counts are looked for in the enquiry report rather than in the company's.
    bool counts_whole_report = false;
    std::vector<FieldRow<Response>> fields;  ///< under the company's report
    ReportPart part;
    /// Of the counts that may include the directors'; none where a report does not show them.
    std::vector<SummaryBlock> directors_quick_summary;
};

/// What a report computes beyond its tables. Compiled like them against a service's names.
class ReportExtra {
  public:
    ReportExtra() = default;
    ReportExtra(const ReportExtra&) = delete;
    ReportExtra& operator=(const ReportExtra&) = delete;
    virtual ~ReportExtra() = default;

    /// Fills the response once the person's records are counted.
    virtual void fill(Response& response, XmlNode root, XmlNode person) const = 0;
    /// Behind the quick summary, and before the statistics.
    virtual void write_quick_summary(Response& response,
                                     const layout::ReportFormats& formats) const = 0;
    virtual void write_statistics(Response& /*response*/,
                                  const layout::ReportFormats& /*formats*/) const {}
};

struct ReportDefinition {
    std::string_view subject = ".";     ///< the report on the person
    std::string_view possible_match{};  ///< another one, told of behind the report
    std::string_view message{};         ///< the bureau's, under the response
    FileFields file;
    PersonFields person;
    ReportPart individual;
    /// What sections of a person start from beside the report on it, as source 1 and on.
    std::vector<std::string_view> sources{};
    std::string_view file_age{};  ///< under the report on a person; the last one counts
    std::unique_ptr<ReportExtra> (*extra)(XmlNames& names) = nullptr;
    std::optional<CompanyReport> company{};
    std::vector<SummaryBlock> statistics;
    layout::MissingAmounts missing_amounts = layout::MissingAmounts::kNoLine;
    ContentErrorWording content_error;
};

}  // namespace zr
