#include "services/vedaxml_nz/summary.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "services/vedaxml_nz/statistics.h"
#include "xml/zr_xml_utilities.h"

namespace zr::new_zealand {
namespace {

constexpr ResponseFieldRow kIndividualFields[] = {
    {&Response::LastName, "individual-name/family-name"},
    {&Response::FirstName, "individual-name/first-given-name"},
    {&Response::MiddleNames, "individual-name/other-given-name"},
    {&Response::Gender, "gender/@type"},
};

constexpr ResponseFieldRow kAddressFields[] = {
    {&Response::StreetName, "street-name"},
    {&Response::Suburb, "suburb"},
    {&Response::City, "city"},
};

void fill_address(const SummaryPaths& paths, const CodeTableItems* street_types, XmlNode address,
                  Response& response) {
    paths.address_fields.fill(response, address);
    std::string number = ZRXMLUtilities::GetSubNodeString(address, paths.street_number);
    if (const std::size_t slash = number.find('/'); slash != std::string::npos) {
        response.UnitNumber(number.substr(0, slash));
        number.erase(0, slash + 1);
    }
    response.StreetNumber(std::move(number));
    if (street_types != nullptr) {
        response.StreetType(std::string(
            street_types->GetDescriptionFromCode(address.value(paths.street_type).value_or(""))));
    }
}

}  // namespace

SummaryPaths::SummaryPaths(XmlNames& names)
    : request_id("/BCAmessage/@service-request-id", names),
      enquiry_report("/BCAmessage/BCAservices/BCAservice/BCAservice-data/response/enquiry-report",
                     names),
      company("company", names),
      company_report("company-report", names),
      company_of_report("company-report/company", names),
      directors("director-report", names),
      file_id("file-id", names),
      individual("individual", names),
      match_type("@match-type", names),
      individual_fields(kIndividualFields, names),
      date_of_birth("date-of-birth", names),
      current_address("address[@type='current']", names),
      address_fields(kAddressFields, names),
      street_number("street-number", names),
      street_type("street-type/@code", names) {}

void write_file_lines(const SummaryPaths& paths, const RegionalFormat& date_format, XmlNode report,
                      Response& response) {
    const XmlNode file_id = report.first(paths.file_id);
    if (!file_id) {
        return;
    }
    response.BureauFileId(ZRXMLUtilities::GetNodeString(file_id));
    response.MatchType(ZRXMLUtilities::GetSubNodeString(file_id, paths.match_type));
    ResponseElements& lines = response.elements();
    lines.AddElement("Response", "Service", "Date Created",
                     date_format.format(response.ResponseDate()));
    lines.AddElement("Response", "Service", "File Id", response.BureauFileId());
    lines.AddElement("Response", "Service", "File Match Type", response.MatchType());
}

void fill_individual(const SummaryPaths& paths, const CodeTableItems* street_types, XmlNode report,
                     Response& response) {
    const XmlNode individual = report.first(paths.individual);
    if (!individual) {
        return;
    }
    paths.individual_fields.fill(response, individual);
    if (const auto date = ZRXMLUtilities::GetSubNodeDate(individual, paths.date_of_birth)) {
        response.DateOfBirth(*date);
    } else {
        response.DateOfBirth(Null{});
    }
    if (const XmlNode address = individual.first(paths.current_address)) {
        fill_address(paths, street_types, address, response);
    }
}

void set_directors_count(Response& response, std::size_t count) {
    constexpr std::size_t kHighest = std::numeric_limits<std::int16_t>::max();
    response.DirectorsCount(static_cast<std::int16_t>(std::min(count, kHighest)));
}

void write_directors_quick_summary(Response& response) {
    if (response.DirectorsCount() > 0) {
        response.elements().AddElement("Quick Summary", "Directors", "Number",
                                       std::to_string(response.DirectorsCount()));
        write_quick_summary(response, kDirectorsQuickSummary);
    }
}

void write_directors_statistics(Response& response, bool counted_in_company) {
    if (response.DirectorsCount() == 0) {
        return;
    }
    response.elements().AddElement("Statistics", "Directors", "Number",
                                   std::to_string(response.DirectorsCount()));
    if (counted_in_company) {
        response.elements().AddElement("Statistics", "Directors", "Warning",
                                       "Overall Company Statistics include Director statistics.");
    }
}

}  // namespace zr::new_zealand
