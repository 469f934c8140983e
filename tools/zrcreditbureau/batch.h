// Many stored replies translated at once.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zrcreditbureau/job.h"
#include "zrcreditbureau/shard.h"

namespace zr::cli {

struct Batch {
    std::vector<std::string> names;  ///< files and folders of replies; none where jobs are lines
    std::string input;               ///< file of jobs as lines; "" or "-" is standard input
    std::uint32_t workers = 1;
    Shard shard;
    bool resume = false;
    bool quiet = false;
};

/// Translates every reply on workers with facades of their own and writes one JSON result a line,
/// in the order of the input; `base` is what each job starts from. What fails is told on standard
/// error and the run goes on. An interruption ends the output behind a whole line. The exit status.
/// Throws MisuseError and OutputError.
int run_batch(const Batch& batch, Job base, const std::string& output_path);

}  // namespace zr::cli
