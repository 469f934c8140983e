// The paths of Australian replies, compiled once against one table of names.
#pragma once

#include <string_view>
#include <vector>

#include "platform/xml_document.h"
#include "records/company_selections.h"
#include "reports/statistics.h"
#include "reports/writer.h"
#include "services/reply_checks.h"
#include "services/vedaxml_au/summary.h"

namespace zr::australia {

/// Where a text property of a candidate is in the reply.
struct CandidateField {
    void (CompanySelection::*set)(std::string_view);
    XmlPath path;
};

struct ReplyPaths {
    ReplyPaths();

    // First, since everything below is compiled against it.
    XmlNames names;

    ReplyCheckPaths checks;
    StatisticsTable statistics;
    layout::CompiledLayout layout;

    SummaryPaths summary;

    XmlPath possible_match;      // under the enquiry report
    XmlPath disqualified_until;  // under a match

    // A company search's candidates, and what is under each.
    XmlPath candidate;
    XmlPath candidate_name;
    std::vector<CandidateField> candidate_fields;
    XmlPath candidate_reference;
    XmlPath entity_type;
    XmlPath number_heading;
    XmlPath organisation_number;
    XmlPath business_number;
};

/// The one instance, made at first use.
const ReplyPaths& reply_paths();

}  // namespace zr::australia
