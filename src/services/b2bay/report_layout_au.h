// The Australian B2Bay report as data: sections and lines, what is counted, and the summary blocks.
#pragma once

#include <span>

#include "reports/layout.h"
#include "reports/statistics.h"

namespace zr::b2bay {

/// Start from the match and the enquiry report, in this order.
std::span<const layout::Section> australian_sections();
std::span<const StatisticsCategory> australian_categories();
std::span<const SummaryBlock> australian_quick_summary();
std::span<const SummaryBlock> australian_statistics();

}  // namespace zr::b2bay
