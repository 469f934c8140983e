#include "services/b2bay/reply_au.h"

#include <array>

#include "reports/statistics.h"
#include "reports/writer.h"
#include "services/b2bay/report_layout_au.h"
#include "services/vedaxml_au/reply.h"
#include "services/vedaxml_au/summary.h"

namespace zr::b2bay {
namespace {

/// The paths of Australian reports, compiled once against one table of names.
struct Paths {
    // First, since everything below is compiled against it.
    XmlNames names;

    ReplyCheckPaths checks{names};
    australia::SummaryPaths summary{names};
    StatisticsTable statistics{australian_categories(), names};
    layout::CompiledLayout layout{australian_sections(), names, layout::MissingAmounts::kNoLine};
};

const Paths& paths() {
    static const Paths kPaths;
    return kPaths;
}

}  // namespace

CheckedReply check_australian(std::string_view response_xml) {
    return check_reply(response_xml, paths().names, paths().checks, australia::content_error);
}

void translate_australian(const ServiceContext& context, const Service& service, Response& response,
                          XmlNode root) {
    const layout::ReportFormats formats(context.format_settings());
    const auto table = [&](std::string_view name) { return service.CodeTables().find(name); };
    const australia::SummaryPaths& summary = paths().summary;
    const XmlNode report = root.first(summary.enquiry_report);
    const XmlNode match = report.first(summary.primary_match);

    write_service_lines(summary.request_id, service.ServiceNameFriendly(), root, response);
    response.Individual(true);
    fill_file(summary, match, response);
    australia::write_file_lines(formats.date, response.MatchType(), response);
    fill_individual(summary, table("StreetTypes"), match, response);
    paths().statistics.update(response, match, StatisticsPeriods(response.ResponseDate()));
    write_quick_summary(response, australian_quick_summary());
    layout::ReportWriter(paths().layout, formats, table, response.elements())
        .write(std::array{match, report}, "");
    write_statistics(response, australian_statistics());
}

}  // namespace zr::b2bay
