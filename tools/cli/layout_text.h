// How a service's report is laid out and what it counts, for who knows the bureau's reports.
#pragma once

#include <string>

#include "automation/json.h"
#include "services/report_definition.h"

namespace zr::cli {

/// Sections with their records and lines, each line's label beside where its value is; then what is
/// counted: of people, and where the service reports on them of companies.
std::string layout_text(const ReportDefinition& report);

/// The same as one object.
void write_layout(automation::JsonWriter& json, const ReportDefinition& report);

}  // namespace zr::cli
