// The candidates of an Australian company search.
#pragma once

#include "xml/xml_document.h"
#include "zrcreditbureau/company_selections.h"

namespace zr::australia {

/// The paths of a company search's candidates, and of what is under each.
struct SearchPaths {
    explicit SearchPaths(XmlNames& names);

    XmlPath candidate;
    XmlPath name;
    XmlPath organisation_type;
    XmlPath entity_type;
    XmlPath status;
    XmlPath registration_area;
    XmlPath reference;
    XmlPath number_heading;
    XmlPath organisation_number;
    XmlPath business_number;
};

/// Adds a selection for each candidate of the reply, in document order.
void add_company_selections(const SearchPaths& paths, CompanySelections& selections, XmlNode root);

}  // namespace zr::australia
