// The New Zealand B2Bay reports as data, a set of tables a version.
#pragma once

#include <span>

#include "reports/layout.h"
#include "reports/response_fields.h"
#include "reports/statistics.h"

namespace zr::b2bay {

/// What one version of the report has different.
struct ReportTables {
    /// Of an individual beyond the common ones.
    std::span<const ResponseFieldRow> individual_fields;

    /// Start from the report on the person and the root of the company's report.
    std::span<const layout::Section> individual_sections;
    std::span<const layout::Section> company_sections;

    std::span<const StatisticsCategory> individual_categories;
    std::span<const StatisticsCategory> company_categories;

    std::span<const SummaryBlock> individual_quick_summary;
    std::span<const SummaryBlock> company_quick_summary;
    /// Whether the quick summary shows the directors of a company.
    bool directors_quick_summary;
    std::span<const SummaryBlock> statistics;
};

const ReportTables& version_1();
const ReportTables& version_2();

// The sections, each in a file of its own.
std::span<const layout::Section> individual_sections();
std::span<const layout::Section> company_sections();
std::span<const layout::Section> individual_sections_of_version_2();
std::span<const layout::Section> company_sections_of_version_2();

}  // namespace zr::b2bay
