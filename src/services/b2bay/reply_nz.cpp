#include "services/b2bay/reply_nz.h"

#include <array>
#include <string>
#include <vector>

#include "services/catalogue_rows.h"
#include "services/vedaxml_nz/reply.h"

namespace zr::b2bay {
namespace {

constexpr ResponseFieldRow kCompanyFields[] = {
    {&Response::CompanyName, "company-name"},
    {&Response::CompanyNumber, "registration-number"},
};

}  // namespace

/// One report on its way into the response of a request.
class ReportReader::Translation {
  public:
    Translation(const ReportReader& reader, const ServiceContext& context, const Service& service,
                bool add_directors_statistics, Request& request)
        : reader_(reader),
          service_(service),
          product_(service.Products().find(request.ProductId())),
          add_directors_statistics_(add_directors_statistics),
          response_(RequestInternals::Response(request)),
          formats_(context.format_settings()),
          periods_(response_.ResponseDate()) {}

    void run(XmlNode root);

  private:
    void translate_individual(XmlNode report);
    /// `report` is the root of the company's report.
    void translate_company(XmlNode report);
    void add_directors();
    void write(const layout::CompiledLayout& layout, XmlNode report, std::string_view prefix);

    const CodeTableItems* table(std::string_view name) const {
        return find_code_table(service_.CodeTables(), product_, name);
    }

    const ReportReader& reader_;
    const Service& service_;
    const Product* product_;
    const bool add_directors_statistics_;
    Response& response_;
    layout::ReportFormats formats_;
    StatisticsPeriods periods_;
    std::vector<XmlNode> directors_;
};

void ReportReader::Translation::run(XmlNode root) {
    const new_zealand::SummaryPaths& paths = reader_.summary_;
    const XmlNode report = root.first(paths.enquiry_report);
    write_service_lines(paths.request_id, service_.ServiceNameFriendly(), root, response_);
    if (report.first(paths.company)) {
        translate_company(report);
    } else if (report.first(paths.company_of_report)) {
        report.select(paths.directors, directors_);
        translate_company(report.first(paths.company_report));
    } else {
        translate_individual(report);
    }
    new_zealand::write_directors_statistics(response_, add_directors_statistics_);
    write_statistics(response_, reader_.tables_.statistics);
}

void ReportReader::Translation::translate_individual(XmlNode report) {
    const new_zealand::SummaryPaths& paths = reader_.summary_;
    response_.Individual(true);
    write_file_lines(paths, formats_.date, report, response_);
    fill_individual(paths, table("StreetTypes"), report, response_);
    reader_.individual_fields_.fill(response_, report.first(paths.individual));
    reader_.individual_statistics_.update(response_, report, periods_);
    write_quick_summary(response_, reader_.tables_.individual_quick_summary);
    write(reader_.individual_layout_, report, "");
}

void ReportReader::Translation::translate_company(XmlNode report) {
    response_.Individual(false);
    write_file_lines(reader_.summary_, formats_.date, report, response_);
    reader_.company_fields_.fill(response_, report.first(reader_.summary_.company));
    reader_.company_statistics_.update(response_, report, periods_);
    write_quick_summary(response_, reader_.tables_.company_quick_summary);
    add_directors();
    if (reader_.tables_.directors_quick_summary) {
        new_zealand::write_directors_quick_summary(response_);
    }
    write(reader_.company_layout_, report, "");
    for (std::size_t index = 0; index < directors_.size(); ++index) {
        write(reader_.individual_layout_, directors_[index],
              "Director " + std::to_string(index + 1));
    }
}

void ReportReader::Translation::add_directors() {
    new_zealand::set_directors_count(response_, directors_.size());
    if (add_directors_statistics_) {
        for (const XmlNode director : directors_) {
            reader_.individual_statistics_.update(response_, director, periods_);
        }
    }
}

void ReportReader::Translation::write(const layout::CompiledLayout& layout, XmlNode report,
                                      std::string_view prefix) {
    layout::ReportWriter(
        layout, formats_, [this](std::string_view name) { return table(name); },
        response_.elements())
        .write(std::array{report}, prefix);
}

ReportReader::ReportReader(const ReportTables& tables)
    : tables_(tables),
      checks_(names_),
      summary_(names_),
      individual_fields_(tables.individual_fields, names_),
      company_fields_(kCompanyFields, names_),
      individual_statistics_(tables.individual_categories, names_),
      company_statistics_(tables.company_categories, names_),
      individual_layout_(tables.individual_sections, names_, layout::MissingAmounts::kNoLine),
      company_layout_(tables.company_sections, names_, layout::MissingAmounts::kNoLine) {}

CheckedReply ReportReader::check(std::string_view response_xml) const {
    return check_reply(response_xml, names_, checks_, new_zealand::content_error);
}

void ReportReader::translate(const ServiceContext& context, const Service& service,
                             bool add_directors_statistics, Request& request, XmlNode root) const {
    Translation(*this, context, service, add_directors_statistics, request).run(root);
}

}  // namespace zr::b2bay
