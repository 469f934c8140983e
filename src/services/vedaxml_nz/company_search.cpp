#include "services/vedaxml_nz/company_search.h"

#include "records/component.h"
#include "xml/zr_xml_utilities.h"

namespace zr::new_zealand {

SearchPaths::SearchPaths(XmlNames& names)
    : candidate("//response/company-selection-list/company-selection-list-details", names),
      company_name("company-name", names),
      registration_number("registration-number", names),
      company_status("company-status", names),
      company_name_type("company-name-type", names),
      registration_area("registration-area", names) {}

void add_company_selections(const SearchPaths& paths, CompanySelections& selections, XmlNode root) {
    for (const XmlNode candidate : root.select(paths.candidate)) {
        const auto text = [candidate](const XmlPath& path) {
            return ZRXMLUtilities::GetSubNodeString(candidate, path);
        };
        CompanySelection& selection = Component::add(selections, text(paths.company_name));
        Component::set(selection.CompanyNumber, text(paths.registration_number));
        Component::set(selection.CompanyStatus, text(paths.company_status));
        Component::set(selection.CompanyTypeDescription, text(paths.company_name_type));
        Component::set(selection.RegistrationArea, text(paths.registration_area));
    }
}

}  // namespace zr::new_zealand
