// The paths of Australian replies, compiled once against one table of names.
#pragma once

#include <string>
#include <vector>

#include "platform/xml_document.h"
#include "records/company_selections.h"
#include "records/response.h"
#include "services/common/reply_checks.h"
#include "services/common/report_writer.h"
#include "services/common/statistics.h"

namespace zr::australia {

/// Where a text property of a record is in the reply.
template <class Record, class Text>
struct Field {
    void (Record::*set)(Text);
    XmlPath path;
};

struct ReplyPaths {
    ReplyPaths();

    // First, since everything below is compiled against it.
    XmlNames names;

    ReplyCheckPaths checks;
    StatisticsTable statistics;
    layout::CompiledLayout layout;

    XmlPath enquiry_report;
    XmlPath request_id;
    // Under the enquiry report.
    XmlPath primary_match;
    XmlPath possible_match;
    // Under a match.
    XmlPath bureau_reference;
    XmlPath match_type;
    XmlPath individual;
    XmlPath disqualified_until;
    // Under the individual.
    std::vector<Field<Response, std::string>> individual_fields;
    XmlPath date_of_birth;
    XmlPath current_address;
    // Under the address.
    std::vector<Field<Response, std::string>> address_fields;
    XmlPath street_type;

    // A company search's candidates, and what is under each.
    XmlPath candidate;
    XmlPath candidate_name;
    std::vector<Field<CompanySelection, std::string_view>> candidate_fields;
    XmlPath candidate_reference;
    XmlPath entity_type;
    XmlPath number_heading;
    XmlPath organisation_number;
    XmlPath business_number;
};

/// The one instance, made at first use.
const ReplyPaths& reply_paths();

}  // namespace zr::australia
