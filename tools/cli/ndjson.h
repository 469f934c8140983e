// The form for programs: one job a line in, one result a line out.
#pragma once

#include <string_view>

#include "cli/job.h"
#include "cli/operation.h"

namespace zr::cli {

/// What the first line of an input may begin with.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Performs the job that a line holds; `base` is what it starts from. Whatever is wrong with a line
/// is its outcome.
Outcome answer(Performer& performer, const Job& base, std::string_view line, bool too_long);

}  // namespace zr::cli
