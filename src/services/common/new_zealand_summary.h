// What the services that read New Zealand reports fill and write alike: where the report is, whom
// it is about, and the directors of a company.
#pragma once

#include <string>
#include <vector>

#include "platform/regional_format.h"
#include "platform/xml_document.h"
#include "records/code_tables.h"
#include "records/response.h"

namespace zr::new_zealand {

struct SummaryPaths {
    explicit SummaryPaths(XmlNames& names);

    struct Field {
        void (Response::*set)(std::string);
        XmlPath path;
    };

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
    std::vector<Field> individual_fields;
    XmlPath date_of_birth;
    XmlPath current_address;
    // Under the address.
    std::vector<Field> address_fields;
    XmlPath street_number;
    XmlPath street_type;
};

/// Sets RequestId and writes the lines that name the service and the request.
void write_service_lines(const SummaryPaths& paths, std::string_view service_name, XmlNode root,
                         Response& response);

/// The file's number and match type, with their lines, when the report has a file id.
void write_file_lines(const SummaryPaths& paths, const RegionalFormat& date_format, XmlNode report,
                      Response& response);

/// The name, gender, date of birth and current address of the report's individual. A street number
/// with a "/" is a unit number and a street number.
void fill_individual(const SummaryPaths& paths, const CodeTableItems* street_types, XmlNode report,
                     Response& response);

/// ("Quick Summary", ...): the number of directors and the counts that may include theirs, when
/// there are any.
void write_directors_quick_summary(Response& response);

/// ("Statistics", "Directors", ...): the number of directors when there are any, and a warning when
/// their records are in the company's counts.
void write_directors_statistics(Response& response, bool counted_in_company);

}  // namespace zr::new_zealand
