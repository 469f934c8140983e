// The candidates of a New Zealand company search.
#pragma once

#include "reports/record_fields.h"
#include "zrcreditbureau/company_selections.h"

namespace zr::new_zealand {

/// Where a reply has a search's candidates, and what is under each.
struct SearchPaths {
    explicit SearchPaths(XmlNames& names);

    XmlPath candidate;
    RecordFields<CompanySelection> fields;
};

/// Adds a selection for each candidate of the reply, in document order.
void add_company_selections(const SearchPaths& paths, CompanySelections& selections, XmlNode root);

}  // namespace zr::new_zealand
