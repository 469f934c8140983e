// Many jobs: stored replies translated at once, or jobs one after the other.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "automation/json_form.h"
#include "cli/check_table.h"
#include "cli/job.h"
#include "cli/operation.h"
#include "cli/shard.h"

namespace zr::cli {

struct Batch {
    Operation operation = Operation::kTranslate;
    std::vector<std::string> names;  ///< files and folders of replies
    std::string input;               ///< file of jobs as lines instead; "-" is standard input
    std::uint32_t workers = 1;
    Shard shard;
    bool resume = false;
    bool quiet = false;
    bool csv = false;            ///< rows instead of JSON
    bool database = false;       ///< tables instead of JSON
    std::set<std::string> done;  ///< files that are passed over
    bool may_be_none = false;    ///< nothing to do is no mistake
    automation::ResponseFields fields = automation::ResponseFields::all();
    /// For programs: a job that fails has its result and no more, neither a line on standard error
    /// nor a part in the exit status.
    bool results_only = false;
    /// Where what the checks of the replies found is gathered, if they are to be checked.
    CheckTable* checks = nullptr;
    bool has_results = true;  ///< else nothing is wanted but the checks
};

/// Performs every job on workers with facades of their own and writes one JSON result a line, in
/// the order of the input, before more input is waited for; `base` is what each job starts from.
/// What fails is told on standard error and the run goes on. An interruption ends the output behind
/// a whole line. Jobs that ask the bureau come one at a time, each when the result before it is
/// kept. The exit status. Throws MisuseError and OutputError.
int run_batch(const Batch& batch, Job base, const std::string& output_path);

}  // namespace zr::cli
