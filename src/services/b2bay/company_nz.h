// What a company's B2Bay report has in both versions.
#pragma once

#include <utility>

#include "services/report_definition.h"

namespace zr::b2bay {

/// Puts the company's report where the B2Bay reports have it: in the first enquiry report alone.
inline void find_in_first_report(CompanyReport& company) {
    company.mark_alone = "company";
    company.alone = ".";
    company.mark_with_directors = "company-report/company";
    company.with_directors = "company-report";
    company.directors = "director-report";
    company.counts_whole_report = false;
}

inline layout::Lines gazette_lines() {
    using namespace layout;
    using layout::text;  // rather than the namespace
    return {
        date("Publication date", "publication-date"),
        text("Gazette Type", "gazette-type"),
        text("Adverse", "adverse/@indicator"),
        text("Narrative", "narrative"),
    };
}

}  // namespace zr::b2bay
