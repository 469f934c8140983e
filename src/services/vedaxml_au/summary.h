// What the services that read Australian reports fill and write alike: where the report is and whom
// it is about.
#pragma once

#include <string_view>

#include "platform/xml_document.h"
#include "records/code_tables.h"
#include "records/response.h"
#include "reports/response_fields.h"
#include "values/regional_format.h"

namespace zr::australia {

struct SummaryPaths {
    explicit SummaryPaths(XmlNames& names);

    XmlPath request_id;
    XmlPath enquiry_report;
    // Under the enquiry report.
    XmlPath primary_match;
    // Under a match.
    XmlPath bureau_reference;
    XmlPath match_type;
    XmlPath individual;
    // Under the individual.
    ResponseFields individual_fields;
    XmlPath date_of_birth;
    XmlPath current_address;
    // Under the address.
    ResponseFields address_fields;
    XmlPath street_type;
};

/// The matched file's number and the type of the match.
void fill_file(const SummaryPaths& paths, XmlNode match, Response& response);

/// The lines of the file, with the match type as the service shows it.
void write_file_lines(const RegionalFormat& date_format, std::string_view match_type,
                      Response& response);

/// The name, details, employment and current address of the match's individual.
void fill_individual(const SummaryPaths& paths, const CodeTableItems* street_types, XmlNode match,
                     Response& response);

}  // namespace zr::australia
