// Cases of whole operations: one self-contained file a case, under cases/.
//
// A file opens with a few words on what it shows, then has sections:
//   [given]       name = value: operation (translate, enquiry, search, verify), country, clock,
//                 response-date, status, failure, TestMode, the facade's formats,
//                 service.<setting>, request.<property>, option.<id>
//   [reply]       what the bureau answers
//   [result]      True or False (True when the section is missing)
//   [message]     the facade's ErrorMessage
//   [document]    the request document, a line for each carriage return
//   [lines]       group | sub-group | name | description
//   [response]    name = value of every property that Clear would have left otherwise
//   [selections]  name | number | status | type | description | area | bureau file
// Line breaks, tabs and backslashes inside a value are written \r \n \t \\, a blank at an end as
// \s.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/text_tables.h"

namespace zr::test {

struct CaseFile {
    std::string name;
    std::vector<std::pair<std::string, std::string>> given;
    std::map<std::string, std::string, std::less<>> sections;  ///< by name, without [given]

    bool has(std::string_view section) const { return sections.contains(section); }
    /// The section's text; "" when there is none.
    std::string_view section(std::string_view name) const;
    std::string_view given_value(std::string_view name) const;
};

/// Every case in its file's alphabetical order.
const std::vector<CaseFile>& all_cases();

std::string escaped(std::string_view text);
}  // namespace zr::test
