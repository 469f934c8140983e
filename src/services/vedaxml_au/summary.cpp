#include "services/vedaxml_au/summary.h"

#include <string>

#include "xml/zr_xml_utilities.h"

namespace zr::australia {
namespace {

constexpr ResponseFieldRow kIndividualFields[] = {
    {&Response::LastName, "individual-name/family-name"},
    {&Response::FirstName, "individual-name/first-given-name"},
    {&Response::MiddleNames, "individual-name/other-given-name"},
    {&Response::Gender, "gender/@type"},
    {&Response::DriversLicenceNumber, "drivers-licence-number"},
    {&Response::Employer, "employment[1]/employer"},
    {&Response::Occupation, "employment[1]/occupation"},
};

constexpr ResponseFieldRow kAddressFields[] = {
    {&Response::UnitNumber, "unit-number"}, {&Response::StreetNumber, "street-number"},
    {&Response::PropertyName, "property"},  {&Response::StreetName, "street-name"},
    {&Response::Suburb, "suburb"},          {&Response::State, "state"},
    {&Response::Postcode, "postcode"},
};

void fill_address(const SummaryPaths& paths, const CodeTableItems* street_types, XmlNode address,
                  Response& response) {
    paths.address_fields.fill(response, address);
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
      primary_match("primary-match", names),
      bureau_reference("bureau-reference", names),
      match_type("@type", names),
      individual("individual", names),
      individual_fields(kIndividualFields, names),
      date_of_birth("date-of-birth", names),
      current_address("address[@type='residential-current']", names),
      address_fields(kAddressFields, names),
      street_type("street-type/@code", names) {}

void fill_file(const SummaryPaths& paths, XmlNode match, Response& response) {
    response.BureauFileId(ZRXMLUtilities::GetSubNodeString(match, paths.bureau_reference));
    response.MatchType(ZRXMLUtilities::GetSubNodeString(match, paths.match_type));
}

void write_file_lines(const RegionalFormat& date_format, std::string_view match_type,
                      Response& response) {
    ResponseElements& lines = response.elements();
    lines.AddElement("Response", "Service", "Date Created",
                     date_format.format(response.ResponseDate()));
    lines.AddElement("Response", "Service", "File Id", response.BureauFileId());
    lines.AddElement("Response", "Service", "File Match Type", match_type);
}

void fill_individual(const SummaryPaths& paths, const CodeTableItems* street_types, XmlNode match,
                     Response& response) {
    const XmlNode individual = match.first(paths.individual);
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

}  // namespace zr::australia
