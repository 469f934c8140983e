// Results as an SQLite database, and what earlier results say about their replies.
#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "automation/json_form.h"

namespace zr::cli {

/// Told of each result how many there were and which share of all, from 0 to 1; false ends the
/// work.
using GoesOn = std::function<bool(std::uint64_t results, double share)>;

/// Makes the database `path` of the results, one JSON result a line, in `results_path`: a row a
/// reply with the fields, one for each of its counts and amounts that is not 0, one a line of its
/// report and one for each company of its list. Whole or not there; false where `goes_on` ended it.
/// Throws OutputError.
bool write_database(const std::string& results_path, const std::string& path,
                    const automation::ResponseFields& fields, const GoesOn& goes_on);

/// Earlier outputs by their names: a folder stands for the files in it, but for hidden ones and
/// those of a run that did not end. Throws MisuseError.
std::vector<std::string> outputs_in(const std::vector<std::string>& names);

/// The files of replies in an earlier output, a database or one JSON result a line; of those that
/// failed only, or of all. Lines that are no results are names. Throws MisuseError.
std::set<std::string> earlier_files(const std::string& path, bool failed_only);

}  // namespace zr::cli
