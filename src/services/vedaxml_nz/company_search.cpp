#include "services/vedaxml_nz/company_search.h"

namespace zr::new_zealand {
namespace {

constexpr FieldRow<CompanySelection> kFields[] = {
    {&CompanySelection::CompanyName, "company-name"},
    {&CompanySelection::CompanyNumber, "registration-number"},
    {&CompanySelection::CompanyStatus, "company-status"},
    {&CompanySelection::CompanyTypeDescription, "company-name-type"},
    {&CompanySelection::RegistrationArea, "registration-area"},
};

}  // namespace

SearchPaths::SearchPaths(XmlNames& names)
    : candidate("//response/company-selection-list/company-selection-list-details", names),
      fields(kFields, names) {}

void add_company_selections(const SearchPaths& paths, CompanySelections& selections, XmlNode root) {
    for (const XmlNode candidate : root.select(paths.candidate)) {
        paths.fields.fill(Component::add(selections), candidate);
    }
}

}  // namespace zr::new_zealand
