// What the services that read New Zealand reports fill and write alike: where the report is, whom
// it is about, and the directors of a company.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/xml_document.h"
#include "records/code_tables.h"
#include "records/response.h"
#include "reports/response_fields.h"
#include "values/regional_format.h"

namespace zr::new_zealand {

struct SummaryPaths {
    explicit SummaryPaths(XmlNames& names);

    XmlPath request_id;
    XmlPath enquiry_report;
    // Under the enquiry report.
    XmlPath company;
    XmlPath company_report;
    XmlPath company_of_report;
    XmlPath directors;
    XmlPath file_id;
    XmlPath individual;
    // Under the file id and the individual.
    XmlPath match_type;
    ResponseFields individual_fields;
    XmlPath date_of_birth;
    XmlPath current_address;
    // Under the address.
    ResponseFields address_fields;
    XmlPath street_number;
    XmlPath street_type;
};

/// The file's number and match type, with their lines, when the report has a file id.
void write_file_lines(const SummaryPaths& paths, const RegionalFormat& date_format, XmlNode report,
                      Response& response);

/// The name, gender, date of birth and current address of the report's individual. A street number
/// with a "/" is a unit number and a street number.
void fill_individual(const SummaryPaths& paths, const CodeTableItems* street_types, XmlNode report,
                     Response& response);

/// Sets DirectorsCount, which stays at the highest count.
void set_directors_count(Response& response, std::size_t count);

/// ("Quick Summary", ...): the number of directors and the counts that may include theirs, when
/// there are any.
void write_directors_quick_summary(Response& response);

/// ("Statistics", "Directors", ...): the number of directors when there are any, and a warning when
/// their records are in the company's counts.
void write_directors_statistics(Response& response, bool counted_in_company);

}  // namespace zr::new_zealand
