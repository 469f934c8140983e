// What the New Zealand B2Bay reports have in both versions.
#pragma once

#include "services/report_definition.h"
#include "services/vedaxml_nz/report.h"

namespace zr::b2bay {

/// The live report without what only the gateway sends, and its company where the B2Bay reports
/// have it: in the first enquiry report alone.
inline ReportDefinition stored_report() {
    ReportDefinition report = new_zealand::report();
    report.message = {};
    report.sources = {};
    report.file_age = {};
    report.extra = nullptr;
    report.missing_amounts = layout::MissingAmounts::kNoLine;
    CompanyReport& company = *report.company;
    company.mark_alone = "company";
    company.alone = ".";
    company.mark_with_directors = "company-report/company";
    company.with_directors = "company-report";
    company.directors = "director-report";
    company.counts_whole_report = false;
    return report;
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
