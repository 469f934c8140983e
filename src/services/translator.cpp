#include "services/translator.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "reports/report_watch.h"
#include "services/catalogue_rows.h"
#include "services/service_engine.h"
#include "values/text.h"
#include "xml/zr_xml_utilities.h"

namespace zr {
namespace {

std::string text_at(XmlNode node, const XmlPath& path) {
    return ZRXMLUtilities::GetSubNodeString(node, path);
}

}  // namespace

/// One reply on its way into the response of a request.
class Translator::Translation {
  public:
    Translation(const Translator& translator, const ServiceEngine& service,
                const layout::FormatSettings& formats, bool adds_directors_statistics,
                Request& request, XmlNode root)
        : its_(translator),
          definition_(translator.definition_),
          service_(service),
          product_(service.catalogue().products->find(request.ProductId())),
          adds_directors_statistics_(adds_directors_statistics),
          response_(Component::response(request)),
          lines_(Component::lines(response_)),
          formats_(formats),
          periods_(response_.ResponseDate()),
          root_(root),
          report_(root.first(translator.report_)) {}

    void run() {
        write_service_lines();
        if (const XmlNode company = find_company()) {
            translate_company(company);
        } else {
            translate_person();
        }
        write_directors_statistics();
        write_statistics(response_, definition_.statistics);
        write_possible_match();
    }

  private:
    void write_service_lines() {
        Component::set(response_.RequestId, text_at(root_, its_.request_id_));
        lines_.AddElement("Response", "Service", "Service", service_.definition().friendly_name);
        lines_.AddElement("Response", "Service", "Request Id", response_.RequestId());
        if (!definition_.message.empty()) {
            Component::set(response_.ResponseMessage,
                           text_at(root_.first(its_.response_), its_.message_));
            lines_.AddElement("Response", "Service", "MESSAGE", response_.ResponseMessage());
        }
    }

    void translate_person() {
        const XmlNode person = report_.first(its_.subject_);
        Component::set(response_.Individual, true);
        write_file_lines(person);
        fill_person(person.first(its_.person_));
        its_.individual_.statistics.update(response_, person, periods_);
        if (its_.extra_) {
            its_.extra_->fill(response_, root_, person);
        }
        write_quick_summary(response_, definition_.individual.quick_summary);
        if (its_.extra_) {
            its_.extra_->write_quick_summary(response_, formats_);
        }
        write_person(person_sources(person), "");
        if (its_.extra_) {
            its_.extra_->write_statistics(response_, formats_);
        }
    }

    /// The company's report; none when the reply is not on a company.
    XmlNode find_company() {
        if (!its_.company_) {
            return {};
        }
        const Company& company = *its_.company_;
        if (report_.first(company.mark_alone)) {
            return report_.first(company.alone);
        }
        if (!report_.first(company.mark_with_directors)) {
            return {};
        }
        report_.select(company.directors, directors_);
        return report_.first(company.with_directors);
    }

    void translate_company(XmlNode company) {
        const CompanyReport& definition = *definition_.company;
        const Part& part = its_.company_->part;
        const XmlNode counted = definition.counts_whole_report ? report_ : company;
        Component::set(response_.Individual, false);
        write_file_lines(counted);
        its_.company_->fields.fill(response_, company);
        part.statistics.update(response_, counted, periods_);
        write_quick_summary(response_, definition.part.quick_summary);
        add_directors();
        write_directors_quick_summary(definition.directors_quick_summary);
        writer(part.layout).write(std::span(&company, 1), "");
        for (std::size_t index = 0; index < directors_.size(); ++index) {
            std::vector<XmlNode> sources(1 + its_.sources_.size());
            sources.front() = directors_[index];
            write_person(sources, "Director " + std::to_string(index + 1));
        }
    }

    void write_file_lines(XmlNode report) {
        const XmlNode file = report.first(its_.file_);
        if (!file && definition_.file.node != ".") {
            return;
        }
        Component::set(response_.BureauFileId, text_at(file, its_.file_number_));
        Component::set(response_.MatchType, text_at(file, its_.match_type_));
        lines_.AddElement("Response", "Service", "Date Created",
                          formats_.date.format(response_.ResponseDate()));
        lines_.AddElement("Response", "Service", "File Id", response_.BureauFileId());
        std::string match_type = response_.MatchType();
        if (definition_.file.upper_case_type) {
            match_type = text::upper(match_type);
        }
        if (report_.first(its_.possible_match_)) {
            match_type += " - see also POSSIBLE MATCH below";
        }
        lines_.AddElement("Response", "Service", "File Match Type", match_type);
    }

    void fill_person(XmlNode person) {
        if (!person) {
            return;
        }
        its_.person_fields_.fill(response_, person);
        if (const auto date = ZRXMLUtilities::GetSubNodeDate(person, its_.date_of_birth_)) {
            Component::set(response_.DateOfBirth, *date);
        } else {
            Component::set(response_.DateOfBirth, Null{});
        }
        if (const XmlNode address = person.first(its_.current_address_)) {
            fill_address(address);
        }
    }

    void fill_address(XmlNode address) {
        its_.address_fields_.fill(response_, address);
        const std::string number = response_.StreetNumber();
        const std::size_t slash = number.find('/');
        if (definition_.person.unit_in_street_number && slash != std::string::npos) {
            Component::set(response_.UnitNumber, number.substr(0, slash));
            Component::set(response_.StreetNumber, number.substr(slash + 1));
        }
        if (const CodeTableItems* street_types = table("StreetTypes")) {
            Component::set(response_.StreetType,
                           std::string(street_types->GetDescriptionFromCode(
                               address.value(its_.street_type_).value_or(""))));
        }
    }

    /// Counts the directors, and their records where these count as the company's.
    void add_directors() {
        constexpr std::size_t kHighest = std::numeric_limits<std::int16_t>::max();
        Component::set(response_.DirectorsCount,
                       static_cast<std::int16_t>(std::min(directors_.size(), kHighest)));
        if (adds_directors_statistics_) {
            for (const XmlNode director : directors_) {
                its_.individual_.statistics.update(response_, director, periods_);
            }
        }
    }

    void write_directors_quick_summary(std::span<const SummaryBlock> blocks) {
        if (response_.DirectorsCount() > 0 && !blocks.empty()) {
            lines_.AddElement("Quick Summary", "Directors", "Number",
                              std::to_string(response_.DirectorsCount()));
            write_quick_summary(response_, blocks);
        }
    }

    void write_directors_statistics() {
        if (response_.DirectorsCount() == 0) {
            return;
        }
        lines_.AddElement("Statistics", "Directors", "Number",
                          std::to_string(response_.DirectorsCount()));
        if (adds_directors_statistics_) {
            lines_.AddElement("Statistics", "Directors", "Warning",
                              "Overall Company Statistics include Director statistics.");
        }
    }

    std::vector<XmlNode> person_sources(XmlNode person) const {
        std::vector<XmlNode> sources{person};
        for (const XmlPath& path : its_.sources_) {
            sources.push_back(root_.first(path));
        }
        return sources;
    }

    void write_person(std::span<const XmlNode> sources, std::string_view prefix) {
        writer(its_.individual_.layout).write(sources, prefix);
        for (const XmlNode age : sources.front().select(its_.file_age_)) {
            Component::set(response_.BureauFileAge, ZRXMLUtilities::GetNodeInteger(age, 0));
        }
    }

    void write_possible_match() {
        if (const XmlNode match = report_.first(its_.possible_match_)) {
            constexpr std::string_view kPossibleMatch = "Possible Match";
            lines_.AddElement(kPossibleMatch, "Service", "File Id",
                              text_at(match, its_.file_number_));
            write_person(person_sources(match), kPossibleMatch);
        }
    }

    /// A table of the service, or else of the request's product.
    const CodeTableItems* table(std::string_view name) const {
        return find_code_table(*service_.catalogue().code_tables, product_, name);
    }

    layout::ReportWriter writer(const layout::CompiledLayout& layout) {
        return {layout, formats_, [this](std::string_view name) { return table(name); }, lines_,
                held_date(response_.DateOfBirth())};
    }

    const Translator& its_;
    const ReportDefinition& definition_;
    const ServiceEngine& service_;
    const Product* product_;
    const bool adds_directors_statistics_;
    Response& response_;
    ReportLines& lines_;
    layout::ReportFormats formats_;
    StatisticsPeriods periods_;
    XmlNode root_;
    XmlNode report_;
    std::vector<XmlNode> directors_;
};

Translator::Company::Company(const CompanyReport& company, layout::MissingAmounts missing,
                             XmlNames& names)
    : mark_alone(company.mark_alone, names),
      alone(company.alone, names),
      mark_with_directors(company.mark_with_directors, names),
      with_directors(company.with_directors, names),
      directors(company.directors, names),
      fields(company.fields, names),
      part(company.part, missing, names) {}

Translator::Translator(ReportDefinition definition, ReportWatch* watch)
    : definition_(std::move(definition)),
      watch_(watch),
      names_(watch),
      checks_(names_),
      request_id_("/BCAmessage/@service-request-id", names_),
      response_("/BCAmessage/BCAservices/BCAservice/BCAservice-data/response", names_),
      message_(path_or_none(definition_.message, names_)),
      report_(kEnquiryReport, names_),
      subject_(definition_.subject, names_),
      possible_match_(path_or_none(definition_.possible_match, names_)),
      file_(definition_.file.node, names_),
      file_number_(definition_.file.number, names_),
      match_type_(definition_.file.match_type, names_),
      person_(definition_.person.node, names_),
      person_fields_(definition_.person.fields, names_),
      date_of_birth_("date-of-birth", names_),
      current_address_(definition_.person.current_address, names_),
      address_fields_(definition_.person.address_fields, names_),
      street_type_("street-type/@code", names_),
      individual_(definition_.individual, definition_.missing_amounts, names_),
      file_age_(path_or_none(definition_.file_age, names_)) {
    for (const std::string_view source : definition_.sources) {
        sources_.emplace_back(source, names_);
    }
    if (definition_.extra != nullptr) {
        extra_ = definition_.extra(names_);
    }
    if (definition_.company) {
        company_ = std::make_unique<const Company>(*definition_.company,
                                                   definition_.missing_amounts, names_);
    }
}

CheckedReply Translator::check(std::string_view response_xml) const {
    return check_reply(response_xml, names_, checks_, definition_.content_error);
}

void Translator::translate(const ServiceEngine& service, const layout::FormatSettings& formats,
                           bool adds_directors_statistics, Request& request, XmlNode root) const {
    if (watch_ != nullptr) {
        watch_->begin_report(Component::response(request));
    }
    Translation(*this, service, formats, adds_directors_statistics, request, root).run();
    if (watch_ != nullptr) {
        watch_->end_report();
    }
}

}  // namespace zr
