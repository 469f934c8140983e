#include "services/vedaxml_nz/reply.h"

#include <array>
#include <string>
#include <vector>

#include "reports/writer.h"
#include "services/catalogue_rows.h"
#include "services/vedaxml_nz/reply_paths.h"
#include "services/vedaxml_nz/statistics.h"
#include "services/vedaxml_nz/statistics_tables.h"
#include "xml/zr_xml_utilities.h"

namespace zr::new_zealand {
namespace {

/// One reply on its way into the response of a request.
class Translation {
  public:
    Translation(const ServiceContext& context, const Service& service,
                bool add_directors_statistics, Request& request)
        : service_(service),
          product_(service.Products().find(request.ProductId())),
          add_directors_statistics_(add_directors_statistics),
          response_(RequestInternals::Response(request)),
          formats_(context.format_settings()),
          periods_(response_.ResponseDate()) {}

    void run(XmlNode root);

  private:
    void translate_individual(XmlNode root, XmlNode report);
    void translate_company(XmlNode report, XmlNode company);
    void add_directors();
    void set_fines(XmlNode fines_report);
    void set_file_age(XmlNode report);
    void write_individual(XmlNode report, XmlNode licence_report, XmlNode fines_report,
                          std::string_view prefix);
    void write_company(XmlNode company);

    /// A table of the service, or else of the request's product.
    const CodeTableItems* table(std::string_view name) const;
    layout::ReportWriter writer(const layout::CompiledLayout& layout);

    const ReplyPaths& paths_ = reply_paths();
    const Service& service_;
    const Product* product_;
    const bool add_directors_statistics_;
    Response& response_;
    layout::ReportFormats formats_;
    StatisticsPeriods periods_;
    std::vector<XmlNode> directors_;
};

void Translation::run(XmlNode root) {
    const XmlNode report = root.first(paths_.summary.enquiry_report);
    write_service_lines(paths_.summary.request_id, service_.ServiceNameFriendly(), root, response_);
    response_.ResponseMessage(
        ZRXMLUtilities::GetSubNodeString(root.first(paths_.response), paths_.general_message));
    response_.elements().AddElement("Response", "Service", "MESSAGE", response_.ResponseMessage());

    if (const XmlNode company = root.first(paths_.company)) {
        translate_company(report, company);
    } else if (root.first(paths_.company_of_report)) {
        root.select(paths_.directors, directors_);
        translate_company(report, root.first(paths_.company_report));
    } else {
        translate_individual(root, report);
    }
    write_directors_statistics(response_, add_directors_statistics_);
    write_statistics(response_, statistics_blocks());
}

void Translation::translate_individual(XmlNode root, XmlNode report) {
    const XmlNode fines_report = root.first(paths_.fines_report);
    response_.Individual(true);
    write_file_lines(paths_.summary, formats_.date, report, response_);
    fill_individual(paths_.summary, table("StreetTypes"), report, response_);
    paths_.individual_statistics.update(response_, report, periods_);
    set_fines(fines_report);
    write_quick_summary(response_, kIndividualQuickSummary);
    if (!response_.MOJFinesAmount().is_zero()) {
        response_.elements().AddElement("Quick Summary", "Ministry of Justice Fines",
                                        "Overdue Total", response_.MOJFinesAmount().to_plain());
    }
    write_individual(report, root.first(paths_.licence_report), fines_report, "");
}

void Translation::translate_company(XmlNode report, XmlNode company) {
    response_.Individual(false);
    write_file_lines(paths_.summary, formats_.date, report, response_);
    paths_.company_statistics.update(response_, report, periods_);
    write_quick_summary(response_, kCompanyQuickSummary);
    add_directors();
    write_directors_quick_summary(response_);
    write_company(company);
}

void Translation::add_directors() {
    set_directors_count(response_, directors_.size());
    if (add_directors_statistics_) {
        for (const XmlNode director : directors_) {
            paths_.individual_statistics.update(response_, director, periods_);
        }
    }
}

void Translation::set_fines(XmlNode fines_report) {
    if (const XmlNode balance = fines_report.first(paths_.fines_balance)) {
        response_.MOJFinesAmount(
            ZRXMLUtilities::GetSubNodeCurrency(balance, paths_.fines_amount, Currency()));
    }
}

void Translation::set_file_age(XmlNode report) {
    for (const XmlNode age : report.select(paths_.file_age)) {
        response_.BureauFileAge(ZRXMLUtilities::GetNodeInteger(age, 0));
    }
}

void Translation::write_individual(XmlNode report, XmlNode licence_report, XmlNode fines_report,
                                   std::string_view prefix) {
    const std::array sources{report, licence_report, fines_report};
    writer(paths_.individual_layout).write(sources, prefix);
    set_file_age(report);
}

void Translation::write_company(XmlNode company) {
    if (const XmlNode details = company.first(paths_.company_details)) {
        response_.CompanyName(ZRXMLUtilities::GetSubNodeString(details, paths_.company_name));
        response_.CompanyNumber(ZRXMLUtilities::GetSubNodeString(details, paths_.company_number));
    }
    writer(paths_.company_layout).write(std::array{company}, "");
    for (std::size_t index = 0; index < directors_.size(); ++index) {
        write_individual(directors_[index], {}, {}, "Director " + std::to_string(index + 1));
    }
}

const CodeTableItems* Translation::table(std::string_view name) const {
    return find_code_table(service_.CodeTables(), product_, name);
}

layout::ReportWriter Translation::writer(const layout::CompiledLayout& layout) {
    return {layout, formats_, [this](std::string_view name) { return table(name); },
            response_.elements(), held_date(response_.DateOfBirth())};
}

}  // namespace

std::string content_error(const ReplyCheckPaths& paths, XmlNode error) {
    return ZRXMLUtilities::GetSubNodeString(error, paths.error_code) + ": " +
           ZRXMLUtilities::GetSubNodeString(error, paths.error_description);
}

CheckedReply check(std::string_view response_xml) {
    const ReplyPaths& paths = reply_paths();
    return check_reply(response_xml, paths.names, paths.checks, content_error);
}

void translate(const ServiceContext& context, const Service& service, bool add_directors_statistics,
               Request& request, XmlNode root) {
    Translation(context, service, add_directors_statistics, request).run(root);
}

}  // namespace zr::new_zealand
