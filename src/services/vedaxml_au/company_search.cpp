#include "services/vedaxml_au/company_search.h"

namespace zr::australia {
namespace {

constexpr FieldRow<CompanySelection> kFields[] = {
    {&CompanySelection::CompanyName, "match-name"},
    {&CompanySelection::CompanyStatus, "asic-report/asic-status"},
    {&CompanySelection::CompanyType, "organisation-type"},
    {&CompanySelection::CompanyTypeDescription,
     "australian-business-register-report/EntityTypeText"},
    {&CompanySelection::RegistrationArea, "state"},
};

/// The number that the candidate can be asked for by: its heading says which one it is.
std::string company_number(const SearchPaths& paths, XmlNode candidate) {
    const std::string heading = ZRXMLUtilities::GetSubNodeString(candidate, paths.number_heading);
    if (heading == "ACN") {
        return ZRXMLUtilities::GetSubNodeString(candidate, paths.organisation_number);
    }
    if (heading.empty()) {
        return ZRXMLUtilities::GetSubNodeString(candidate, paths.business_number);
    }
    return {};
}

}  // namespace

SearchPaths::SearchPaths(XmlNames& names)
    : candidate("//BCAmessage/BCAservices/BCAservice/BCAservice-data/response/org-id-result",
                names),
      fields(kFields, names),
      reference("bureau-report/bureau-reference", names),
      number_heading("organisation-number-heading", names),
      organisation_number("organisation-number", names),
      business_number("australian-business-number", names) {}

void add_company_selections(const SearchPaths& paths, CompanySelections& selections, XmlNode root) {
    for (const XmlNode candidate : root.select(paths.candidate)) {
        CompanySelection& selection = Component::add(selections);
        paths.fields.fill(selection, candidate);
        if (selection.CompanyTypeDescription().empty()) {
            Component::set(selection.CompanyTypeDescription, selection.CompanyType());
        }
        Component::set(selection.CompanyNumber, company_number(paths, candidate));
        selection.BureauFileId(ZRXMLUtilities::GetSubNodeString(candidate, paths.reference));
    }
}

}  // namespace zr::australia
