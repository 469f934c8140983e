// How a New Zealand B2Bay report becomes a response.
#pragma once

#include <string_view>

#include "records/request.h"
#include "reports/writer.h"
#include "services/b2bay/report_tables_nz.h"
#include "services/reply_checks.h"
#include "services/service.h"
#include "services/vedaxml_nz/summary.h"

namespace zr::b2bay {

/// Reads the reports of one version: its tables, compiled. Constant once made.
class ReportReader {
  public:
    explicit ReportReader(const ReportTables& tables);

    /// Parses and checks a report.
    CheckedReply check(std::string_view response_xml) const;

    /// Fills the summary, the statistics and the lines of the request's response from a checked
    /// report. The document fields and ResponseDate are set already. `add_directors_statistics`
    /// counts the records of a company's directors into the company's own figures.
    void translate(const ServiceContext& context, const Service& service,
                   bool add_directors_statistics, Request& request, XmlNode root) const;

  private:
    class Translation;

    const ReportTables& tables_;
    // Before everything that is compiled against it.
    XmlNames names_;

    ReplyCheckPaths checks_;
    new_zealand::SummaryPaths summary_;
    ResponseFields individual_fields_;
    ResponseFields company_fields_;
    StatisticsTable individual_statistics_;
    StatisticsTable company_statistics_;
    layout::CompiledLayout individual_layout_;
    layout::CompiledLayout company_layout_;
};

}  // namespace zr::b2bay
