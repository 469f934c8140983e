// What is counted of the New Zealand gateway's reports, as data.
#pragma once

#include <span>

#include "reports/statistics.h"

namespace zr::new_zealand {

/// Of a person: the applicant or a director.
std::span<const StatisticsCategory> individual_categories();
std::span<const StatisticsCategory> company_categories();

std::span<const SummaryBlock> statistics_blocks();

}  // namespace zr::new_zealand
