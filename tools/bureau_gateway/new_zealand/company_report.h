// The report on a company, with the reports on its directors where they are asked for.
#pragma once

#include "bureau_gateway/dates.h"
#include "bureau_gateway/message/xml_writer.h"
#include "bureau_gateway/new_zealand/company_register.h"

namespace zr::gateway::new_zealand {

/// Writes all that an enquiry on a company is answered with.
void write_company_report(XmlWriter& xml, const Company& company, bool with_directors,
                          bool with_summary, Date today);

}  // namespace zr::gateway::new_zealand
