// A job's outcome, whatever comes: nothing is thrown for what is wrong with one job.
#pragma once

#include <string>
#include <string_view>

#include "cli/job.h"
#include "cli/operation.h"

namespace zr::cli {

/// What the first line of an input may begin with.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Performs the job that a line holds; `base` is what it starts from.
Outcome answer_line(Performer& performer, const Job& base, std::string_view line, bool too_long);

/// Translates the reply in a file.
Outcome answer_file(Performer& performer, const Job& base, const std::string& path);

}  // namespace zr::cli
