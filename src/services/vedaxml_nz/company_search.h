// The candidates of a New Zealand company search.
#pragma once

#include "xml/xml_document.h"
#include "zrcreditbureau/company_selections.h"

namespace zr::new_zealand {

/// The paths of a company search's candidates, and of what is under each.
struct SearchPaths {
    explicit SearchPaths(XmlNames& names);

    XmlPath candidate;
    XmlPath company_name;
    XmlPath registration_number;
    XmlPath company_status;
    XmlPath company_name_type;
    XmlPath registration_area;
};

/// Adds a selection for each candidate of the reply, in document order.
void add_company_selections(const SearchPaths& paths, CompanySelections& selections, XmlNode root);

}  // namespace zr::new_zealand
