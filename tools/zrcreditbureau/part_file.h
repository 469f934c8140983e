// The results of a batch on their way into a file: they stay when the run is interrupted, so that
// another run can go on behind them.
#pragma once

#include <cstdint>
#include <string>

#include "zrcreditbureau/files.h"

namespace zr::cli {

/// What tells one run from another.
struct RunIdentity {
    std::string run;  ///< the input and the options, in one line
    std::string day;  ///< the day from which its statistics count back
};

/// FILE.part, which holds whole results only, and FILE.part.run beside it, which tells what run
/// they belong to.
class PartFile {
  public:
    /// Opens both for the results that `path` is to have. To resume, the part file must be of the
    /// same run, and `identity.day` becomes the day of that run; where there is no part file the
    /// run begins at the start. Throws OutputError, and MisuseError for results of another run.
    PartFile(const std::string& path, bool resume, RunIdentity& identity);

    /// Results that are there already, and how many of them say that the job failed.
    std::uint64_t finished() const { return finished_; }
    std::uint64_t failed() const { return failed_; }

    /// Takes the results.
    Output& output() { return output_; }
    /// Everything is written: the part file takes the file's name.
    void finish();

    /// False for a pipe or a device, which keeps nothing.
    static bool is_possible(const std::string& path);

  private:
    void start_over(const RunIdentity& identity);
    void go_on(RunIdentity& identity);
    void count_results();

    std::string path_;
    std::string part_path_;
    std::string run_path_;
    int descriptor_;
    Output output_;
    std::uint64_t finished_ = 0;
    std::uint64_t failed_ = 0;
};

}  // namespace zr::cli
