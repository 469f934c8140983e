// The report of the Australian bureau as data: sections and lines, what is counted, and the summary
// blocks.
#pragma once

#include <span>

#include "services/common/report_layout.h"
#include "services/common/statistics.h"

namespace zr::australia {

/// The nodes that sections start from, in the order in which the writer takes them.
enum Source : std::uint8_t {
    kMatch = 0,   ///< the matched file: primary or possible match
    kReport = 1,  ///< the enquiry report
};

std::span<const layout::Section> report_sections();
std::span<const StatisticsCategory> statistics_categories();
std::span<const SummaryBlock> quick_summary();
std::span<const SummaryBlock> statistics_blocks();

}  // namespace zr::australia
