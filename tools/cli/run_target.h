// Where the results of many jobs go.
#pragma once

#include <optional>
#include <string>

#include "cli/batch.h"
#include "cli/database.h"
#include "cli/job_source.h"
#include "cli/output.h"
#include "cli/part_file.h"

namespace zr::cli {

/// A part file where the run could be gone on with, or its results could not be had again, else as
/// every output.
class RunTarget {
  public:
    /// Gives `base` the day from which the run's statistics count back, and has `source` pass over
    /// what has its result already. Throws MisuseError and OutputError.
    RunTarget(const Batch& batch, Job& base, JobSource& source, const std::string& path);

    Output& output() { return part_ ? part_->output() : *plain_; }
    /// The part file; null where the output is written as every other.
    const PartFile* part() const { return part_ ? &*part_ : nullptr; }

    /// Everything is written: the output is complete. A database is made first, as `goes_on` lets
    /// it; false where that ended it.
    bool finish(const Batch& batch, const std::string& path, const GoesOn& goes_on);

  private:
    void gather(const Batch& batch, Job& base, JobSource& source, const std::string& path,
                const DateTime& today);

    std::optional<Output> plain_;
    std::optional<PartFile> part_;
};

}  // namespace zr::cli
