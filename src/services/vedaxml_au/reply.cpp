#include "services/vedaxml_au/reply.h"

#include <array>
#include <string>

#include "platform/text.h"
#include "services/common/report_writer.h"
#include "services/common/statistics.h"
#include "services/vedaxml_au/reply_paths.h"
#include "services/vedaxml_au/report_layout.h"
#include "xml/zr_xml_utilities.h"

namespace zr::australia {
namespace {

std::string content_error(const ReplyCheckPaths& paths, XmlNode error) {
    const auto text = [&](const XmlPath& path) {
        return ZRXMLUtilities::GetSubNodeString(error, path);
    };
    return text(paths.error_description) + " (" + text(paths.error_code) + ")\r\nType of error '" +
           text(paths.error_type) + "', in '" + text(paths.input_container) + "'";
}

/// One reply on its way into one response.
class Translation {
  public:
    Translation(const ServiceContext& context, const Service& service, Response& response)
        : service_(service), response_(response), formats_(context) {}

    void run(XmlNode root);

  private:
    void write_service_lines(XmlNode root);
    void write_file_lines(XmlNode match, bool has_possible_match);
    void fill_individual(XmlNode individual);
    void fill_address(XmlNode address);
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
    const XmlNode report = root.first(paths_.enquiry_report);
    const XmlNode match = report.first(paths_.primary_match);
    const XmlNode possible_match = report.first(paths_.possible_match);

    write_service_lines(root);
    response_.Individual(true);
    write_file_lines(match, static_cast<bool>(possible_match));
    fill_individual(match.first(paths_.individual));
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
            ZRXMLUtilities::GetSubNodeString(possible_match, paths_.bureau_reference));
        write_report(report, possible_match, kPossibleMatch);
    }
}

void Translation::write_service_lines(XmlNode root) {
    response_.RequestId(ZRXMLUtilities::GetSubNodeString(root, paths_.request_id));
    ResponseElements& lines = response_.elements();
    lines.AddElement("Response", "Service", "Service", service_.ServiceNameFriendly());
    lines.AddElement("Response", "Service", "Request Id", response_.RequestId());
}

void Translation::write_file_lines(XmlNode match, bool has_possible_match) {
    response_.BureauFileId(ZRXMLUtilities::GetSubNodeString(match, paths_.bureau_reference));
    response_.MatchType(ZRXMLUtilities::GetSubNodeString(match, paths_.match_type));
    std::string match_type = text::upper(response_.MatchType());
    if (has_possible_match) {
        match_type += " - see also POSSIBLE MATCH below";
    }
    ResponseElements& lines = response_.elements();
    lines.AddElement("Response", "Service", "Date Created",
                     formats_.date.format(response_.ResponseDate()));
    lines.AddElement("Response", "Service", "File Id", response_.BureauFileId());
    lines.AddElement("Response", "Service", "File Match Type", match_type);
}

void Translation::fill_individual(XmlNode individual) {
    if (!individual) {
        return;
    }
    for (const auto& field : paths_.individual_fields) {
        (response_.*field.set)(ZRXMLUtilities::GetSubNodeString(individual, field.path));
    }
    if (const auto date = ZRXMLUtilities::GetSubNodeDate(individual, paths_.date_of_birth)) {
        response_.DateOfBirth(*date);
    } else {
        response_.DateOfBirth(Null{});
    }
    fill_address(individual.first(paths_.current_address));
}

void Translation::fill_address(XmlNode address) {
    if (!address) {
        return;
    }
    for (const auto& field : paths_.address_fields) {
        (response_.*field.set)(ZRXMLUtilities::GetSubNodeString(address, field.path));
    }
    response_.StreetType(
        std::string(table("StreetTypes")
                        ->GetDescriptionFromCode(address.value(paths_.street_type).value_or(""))));
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

CheckedReply check(std::string_view response_xml) {
    const ReplyPaths& paths = reply_paths();
    return check_reply(response_xml, paths.names, paths.checks, content_error);
}

void translate(const ServiceContext& context, const Service& service, Response& response,
               XmlNode root) {
    Translation(context, service, response).run(root);
}

}  // namespace zr::australia
