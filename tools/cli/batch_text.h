// What a run tells people of many jobs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/progress.h"
#include "cli/run_target.h"

namespace zr::cli {

/// The message in one line.
std::string one_line(std::string_view message);

/// "12 answered"
std::string answered(const Standing& standing);

/// Where results are that an interruption has left.
std::string left_in(const Batch& batch, const RunTarget& target);

/// What became of a run that a signal, or 0, has ended.
std::string summary(const Batch& batch, const Standing& standing, double seconds,
                    const RunTarget& target, int signal);

/// Tells what people should know about the input; not more than they can read.
void remark(Progress& progress, const std::vector<std::string>& remarks);

}  // namespace zr::cli
