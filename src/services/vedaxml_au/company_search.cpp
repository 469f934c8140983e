#include "services/vedaxml_au/company_search.h"

#include <string>

#include "records/component.h"
#include "xml/zr_xml_utilities.h"

namespace zr::australia {
namespace {

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
      name("match-name", names),
      organisation_type("organisation-type", names),
      entity_type("australian-business-register-report/EntityTypeText", names),
      status("asic-report/asic-status", names),
      registration_area("state", names),
      reference("bureau-report/bureau-reference", names),
      number_heading("organisation-number-heading", names),
      organisation_number("organisation-number", names),
      business_number("australian-business-number", names) {}

void add_company_selections(const SearchPaths& paths, CompanySelections& selections, XmlNode root) {
    for (const XmlNode candidate : root.select(paths.candidate)) {
        const auto text = [candidate](const XmlPath& path) {
            return ZRXMLUtilities::GetSubNodeString(candidate, path);
        };
        CompanySelection& selection = Component::add(selections, text(paths.name));
        Component::set(selection.CompanyType, text(paths.organisation_type));
        Component::set(selection.CompanyStatus, text(paths.status));
        Component::set(selection.RegistrationArea, text(paths.registration_area));
        const std::string entity_type = text(paths.entity_type);
        Component::set(selection.CompanyTypeDescription,
                       entity_type.empty() ? selection.CompanyType() : entity_type);
        Component::set(selection.CompanyNumber, company_number(paths, candidate));
        selection.BureauFileId(text(paths.reference));
    }
}

}  // namespace zr::australia
