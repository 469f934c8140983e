#include "services/vedaxml_au/reply_paths.h"

#include <span>
#include <string_view>

#include "services/vedaxml_au/report_layout.h"

namespace zr::australia {
namespace {

/// A property and its path as data.
template <class Record, class Text>
struct FieldRow {
    void (Record::*set)(Text);
    std::string_view path;
};
using ResponseField = FieldRow<Response, std::string>;
using CandidateField = FieldRow<CompanySelection, std::string_view>;

constexpr ResponseField kIndividualFields[] = {
    {&Response::LastName, "individual-name/family-name"},
    {&Response::FirstName, "individual-name/first-given-name"},
    {&Response::MiddleNames, "individual-name/other-given-name"},
    {&Response::Gender, "gender/@type"},
    {&Response::DriversLicenceNumber, "drivers-licence-number"},
    {&Response::Employer, "employment/employer"},
    {&Response::Occupation, "employment/occupation"},
};

constexpr ResponseField kAddressFields[] = {
    {&Response::UnitNumber, "unit-number"}, {&Response::StreetNumber, "street-number"},
    {&Response::PropertyName, "property"},  {&Response::StreetName, "street-name"},
    {&Response::Suburb, "suburb"},          {&Response::State, "state"},
    {&Response::Postcode, "postcode"},
};

constexpr CandidateField kCandidateFields[] = {
    {&CompanySelection::CompanyType, "organisation-type"},
    {&CompanySelection::CompanyStatus, "asic-report/asic-status"},
    {&CompanySelection::RegistrationArea, "state"},
};

template <class Record, class Text, std::size_t n>
std::vector<Field<Record, Text>> compile(const FieldRow<Record, Text> (&rows)[n], XmlNames& names) {
    std::vector<Field<Record, Text>> fields;
    for (const auto& row : rows) {
        fields.push_back({row.set, XmlPath(row.path, names)});
    }
    return fields;
}

}  // namespace

ReplyPaths::ReplyPaths()
    : checks(names),
      statistics(statistics_categories(), names),
      layout(report_sections(), names),
      enquiry_report("/BCAmessage/BCAservices/BCAservice/BCAservice-data/response/enquiry-report",
                     names),
      request_id("/BCAmessage/@service-request-id", names),
      primary_match("primary-match", names),
      possible_match("possible-match", names),
      bureau_reference("bureau-reference", names),
      match_type("@type", names),
      individual("individual", names),
      disqualified_until(
          "individual-public-data-file/disqualified-directorship/date-disqualified-until", names),
      individual_fields(compile(kIndividualFields, names)),
      date_of_birth("date-of-birth", names),
      current_address("address[@type='residential-current']", names),
      address_fields(compile(kAddressFields, names)),
      street_type("street-type/@code", names),
      candidate("//BCAmessage/BCAservices/BCAservice/BCAservice-data/response/org-id-result",
                names),
      candidate_name("match-name", names),
      candidate_fields(compile(kCandidateFields, names)),
      candidate_reference("bureau-report/bureau-reference", names),
      entity_type("australian-business-register-report/EntityTypeText", names),
      number_heading("organisation-number-heading", names),
      organisation_number("organisation-number", names),
      business_number("australian-business-number", names) {}

const ReplyPaths& reply_paths() {
    static const ReplyPaths paths;
    return paths;
}

}  // namespace zr::australia
