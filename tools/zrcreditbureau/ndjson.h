// The form for programs: one job a line in, one result a line out.
#pragma once

#include "zrcreditbureau/files.h"
#include "zrcreditbureau/job.h"
#include "zrcreditbureau/operation.h"

namespace zr::cli {

/// Answers every line of standard input in its order; `base` is what each job starts from. A line
/// that is no job, an empty one too, is answered with the reason, and the run goes on. Results are
/// written before more input is waited for.
void run_ndjson(Performer& performer, const Job& base, Output& output);

}  // namespace zr::cli
