// The reports that the services read, for who checks or shows them.
#pragma once

#include <string_view>
#include <vector>

#include "services/report_definition.h"
#include "services/service_engine.h"

namespace zr {

/// A service by its name in any letter case; null for a name that no country's registry has.
const ServiceDefinition* find_service(std::string_view name);

/// The definition of a service's report, by the service's name in any letter case; null for a name
/// that no country's registry has.
const ReportDefinition* find_report(std::string_view service_name);

/// The names of the services of all countries, in registry order.
std::vector<std::string_view> all_service_names();

}  // namespace zr
