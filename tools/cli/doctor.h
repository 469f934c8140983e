// A deployment tried step by step.
#pragma once

#include <iosfwd>

#include "cli/job.h"

namespace zr::cli {

/// Says in a line each what of the job's service works and, of what does not, what to do. True when
/// all does.
bool examine(const Job& job, std::ostream& out);

}  // namespace zr::cli
