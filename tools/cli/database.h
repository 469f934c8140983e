// Results as an SQLite database, and what earlier results say about their replies.
#pragma once

#include <set>
#include <string>

#include "automation/json_form.h"

namespace zr::cli {

/// Makes the database `path` of the results, one JSON result a line, in `results_path`: a row a
/// reply with the fields, one for each of its counts and amounts that is not 0, one a line of its
/// report and one for each company of its list. Whole or not there. Throws OutputError.
void write_database(const std::string& results_path, const std::string& path,
                    const automation::ResponseFields& fields);

/// The files of replies in an earlier output, a database or one JSON result a line; of those that
/// failed only, or of all. Lines that are no results are names. Throws MisuseError.
std::set<std::string> earlier_files(const std::string& path, bool failed_only);

}  // namespace zr::cli
