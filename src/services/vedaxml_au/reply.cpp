#include "services/vedaxml_au/reply.h"

#include <array>
#include <string>

#include "reports/statistics.h"
#include "reports/writer.h"
#include "services/vedaxml_au/reply_paths.h"
#include "services/vedaxml_au/report_layout.h"
#include "values/text.h"
#include "xml/zr_xml_utilities.h"

namespace zr::australia {
namespace {

/// One reply on its way into one response.
class Translation {
  public:
    Translation(const ServiceContext& context, const Service& service, Response& response)
        : service_(service), response_(response), formats_(context.format_settings()) {}

    void run(XmlNode root);

  private:
    std::string shown_match_type(bool has_possible_match) const;
    void update_statistics(XmlNode match);
    void write_disqualification(std::string_view group);
    void write_report(XmlNode report, XmlNode match, std::string_view prefix);

    const CodeTableItems* table(std::string_view name) const {
        return service_.CodeTables().find(name);
    }

    const ReplyPaths& paths_ = reply_paths();
    const Service& service_;
    Response& response_;
    layout::ReportFormats formats_;
};

void Translation::run(XmlNode root) {
    const XmlNode report = root.first(paths_.summary.enquiry_report);
    const XmlNode match = report.first(paths_.summary.primary_match);
    const XmlNode possible_match = report.first(paths_.possible_match);

    write_service_lines(paths_.summary.request_id, service_.ServiceNameFriendly(), root, response_);
    response_.Individual(true);
    fill_file(paths_.summary, match, response_);
    write_file_lines(formats_.date, shown_match_type(static_cast<bool>(possible_match)), response_);
    fill_individual(paths_.summary, table("StreetTypes"), match, response_);
    update_statistics(match);
    write_quick_summary(response_, quick_summary());
    write_disqualification("Quick Summary");
    write_report(report, match, "");
    write_disqualification("Statistics");
    write_statistics(response_, statistics_blocks());
    if (possible_match) {
        constexpr std::string_view kPossibleMatch = "Possible Match";
        response_.elements().AddElement(
            kPossibleMatch, "Service", "File Id",
            ZRXMLUtilities::GetSubNodeString(possible_match, paths_.summary.bureau_reference));
        write_report(report, possible_match, kPossibleMatch);
    }
}

std::string Translation::shown_match_type(bool has_possible_match) const {
    std::string match_type = text::upper(response_.MatchType());
    if (has_possible_match) {
        match_type += " - see also POSSIBLE MATCH below";
    }
    return match_type;
}

void Translation::update_statistics(XmlNode match) {
    paths_.statistics.update(response_, match, StatisticsPeriods(response_.ResponseDate()));
    for (const XmlNode until : match.select(paths_.disqualified_until)) {
        const auto date = ZRXMLUtilities::GetNodeDate(until);
        const auto latest = held_date(response_.DisqualifiedDirectorshipUntil());
        if (date && (!latest || *latest < *date)) {
            response_.DisqualifiedDirectorshipUntil(*date);
        }
    }
}

void Translation::write_disqualification(std::string_view group) {
    if (const auto until = held_date(response_.DisqualifiedDirectorshipUntil())) {
        response_.elements().AddElement(group, "Disqualified Directorship", "Until",
                                        formats_.date.format(*until));
    }
}

void Translation::write_report(XmlNode report, XmlNode match, std::string_view prefix) {
    const std::array<XmlNode, 2> sources{match, report};
    layout::ReportWriter writer(
        paths_.layout, formats_, [this](std::string_view name) { return table(name); },
        response_.elements());
    writer.write(sources, prefix);
}

}  // namespace

std::string content_error(const ReplyCheckPaths& paths, XmlNode error) {
    const auto text = [&](const XmlPath& path) {
        return ZRXMLUtilities::GetSubNodeString(error, path);
    };
    return text(paths.error_description) + " (" + text(paths.error_code) + ")\r\nType of error '" +
           text(paths.error_type) + "', in '" + text(paths.input_container) + "'";
}

CheckedReply check(std::string_view response_xml) {
    const ReplyPaths& paths = reply_paths();
    return check_reply(response_xml, paths.names, paths.checks, content_error);
}

void translate(const ServiceContext& context, const Service& service, Response& response,
               XmlNode root) {
    Translation(context, service, response).run(root);
}

}  // namespace zr::australia
