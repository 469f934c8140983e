// How a reply becomes a response, for every service: a report's definition, compiled.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "reports/writer.h"
#include "services/report_definition.h"
#include "xml/xml_document.h"
#include "zrcreditbureau/request.h"

namespace zr {

class ServiceEngine;

/// Reads the replies of one service. Constant once made; made once, since compiling takes time.
class Translator {
  public:
    /// The watch, when there is one, is told how every report comes about.
    explicit Translator(ReportDefinition definition, ReportWatch* watch = nullptr);
    Translator(const Translator&) = delete;
    Translator& operator=(const Translator&) = delete;

    const ReportDefinition& definition() const { return definition_; }

    /// For paths of a service's own, before the first reply is read.
    XmlNames& names() { return names_; }
    const XmlNames& names() const { return names_; }

    /// Parses a reply and looks for the bureau's errors.
    CheckedReply check(std::string_view response_xml) const;

    /// Fills the summary, the statistics and the lines of the request's response from a checked
    /// reply. The document fields and ResponseDate are set already. `adds_directors_statistics`
    /// counts the records of a company's directors into the company's own figures.
    void translate(const ServiceEngine& service, const layout::FormatSettings& formats,
                   bool adds_directors_statistics, Request& request, XmlNode root) const;

  private:
    class Translation;

    /// A part's tables.
    struct Part {
        Part(const ReportPart& part, layout::MissingAmounts missing, XmlNames& names)
            : statistics(part.counted, names), layout(part.sections, names, missing) {}
        StatisticsTable statistics;
        layout::CompiledLayout layout;
    };
    struct Company {
        Company(const CompanyReport& company, layout::MissingAmounts missing, XmlNames& names);
        XmlPath mark_alone;
        XmlPath alone;
        XmlPath mark_with_directors;
        XmlPath with_directors;
        XmlPath directors;
        RecordFields<Response> fields;
        Part part;
    };

    // Before everything that is compiled from and against them.
    const ReportDefinition definition_;
    ReportWatch* const watch_;
    XmlNames names_;

    ReplyCheckPaths checks_;
    XmlPath request_id_;
    XmlPath response_;
    XmlPath message_;
    XmlPath report_;
    XmlPath subject_;
    XmlPath possible_match_;
    XmlPath file_;
    XmlPath file_number_;
    XmlPath match_type_;
    XmlPath person_;
    RecordFields<Response> person_fields_;
    XmlPath date_of_birth_;
    XmlPath current_address_;
    RecordFields<Response> address_fields_;
    XmlPath street_type_;
    Part individual_;
    std::vector<XmlPath> sources_;
    XmlPath file_age_;
    std::unique_ptr<ReportExtra> extra_;
    std::unique_ptr<const Company> company_;
};

}  // namespace zr
