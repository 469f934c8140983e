// The report of the Australian bureau as data: sections and lines, what is counted, and the summary
// blocks.
#pragma once

#include <span>

#include "reports/layout.h"
#include "reports/statistics.h"

namespace zr::australia {

/// Start from the match and the enquiry report, in this order.
std::span<const layout::Section> report_sections();
std::span<const StatisticsCategory> statistics_categories();
std::span<const SummaryBlock> quick_summary();
std::span<const SummaryBlock> statistics_blocks();

}  // namespace zr::australia
