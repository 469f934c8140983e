// The candidates of an Australian company search.
#pragma once

#include "platform/xml_document.h"
#include "records/company_selections.h"

namespace zr::australia {

/// Adds a selection for each candidate of the reply, in document order.
void add_company_selections(CompanySelections& selections, XmlNode root);

}  // namespace zr::australia
