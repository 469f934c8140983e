// The results of a run on their way into a file: they stay when the run is interrupted, so that
// another run can go on behind them, or so that nothing paid for is lost.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "cli/output.h"

namespace zr::cli {

/// What tells one run from another.
struct RunIdentity {
    std::string run;  ///< the input and the options, in one line
    std::string day;  ///< the day from which its statistics count back
};

/// FILE.part, which holds whole results only; of a run that can be gone on with FILE.part.run
/// stands beside it, which tells what run they belong to. No symbolic link is followed to either.
class PartFile {
  public:
    /// What the result with this number, counted from 0, says its job's was; nothing for a line
    /// that is not that result.
    using ReadResult =
        std::function<std::optional<bool>(std::string_view line, std::uint64_t number)>;

    /// For results that cannot be had again. Throws OutputError, also where an earlier run has left
    /// results.
    explicit PartFile(const std::string& path);

    /// For a run that can be gone on with. To resume, the part file must be of the same run, and
    /// `identity.day` becomes the day of that run; where there is no part file the run begins at
    /// the start. Throws OutputError, and MisuseError for results of another run.
    PartFile(const std::string& path, bool resume, RunIdentity& identity,
             const ReadResult& read_result);

    /// Leaves no part file where there are no results.
    ~PartFile();
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    /// Results that are there already, and how many of them say that the job failed.
    std::uint64_t finished() const { return finished_; }
    std::uint64_t failed() const { return failed_; }
    /// True where lines behind those were dropped, which were no results of this run.
    bool dropped() const { return dropped_; }

    const std::string& path() const { return part_path_; }
    /// Takes the results.
    Output& output() { return output_; }
    /// Everything is written: the part file takes the file's name.
    void finish();
    /// Everything is written: `convert` makes the file of the part file, which then is gone. False,
    /// and the part file stays, where it does not.
    bool finish(const std::function<bool(const std::string& part_path)>& convert);

  private:
    void start_over(const RunIdentity& identity);
    void go_on(RunIdentity& identity, const ReadResult& read_result);
    void count_results(const ReadResult& read_result);

    std::string part_path_;
    std::string run_path_;
    int descriptor_;
    Output output_;
    std::uint64_t finished_ = 0;
    std::uint64_t failed_ = 0;
    bool dropped_ = false;
    bool complete_ = false;
};

}  // namespace zr::cli
