// The jobs of a batch, in their order: from files of replies, or from lines of NDJSON.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "zrcreditbureau/interruption.h"
#include "zrcreditbureau/job.h"
#include "zrcreditbureau/shard.h"

namespace zr::cli {

/// A job not yet read: a reply's file, or a line.
struct BatchItem {
    std::string text;       ///< the file's name, or the line
    std::uint64_t number;   ///< 1-based in the part of the input that is worked on
    bool too_long = false;  ///< the line was too long to keep
};

/// Where the jobs come from. Not for two threads at a time.
class JobSource {
  public:
    JobSource() = default;
    virtual ~JobSource() = default;
    JobSource(const JobSource&) = delete;
    JobSource& operator=(const JobSource&) = delete;

    /// True when jobs are files, false when they are lines.
    virtual bool files() const = 0;
    /// Adds the jobs that are at hand, up to a modest number: waits for the first one only. False
    /// when there are none any more, or when the run is to stop.
    virtual bool take(std::vector<BatchItem>& items) = 0;
    /// How many jobs or bytes there are, where that is known.
    virtual std::optional<std::uint64_t> total() const = 0;
    /// How much of `total` was taken.
    virtual std::uint64_t taken() const = 0;
    /// What tells this input from another; nothing for one that cannot be read again.
    virtual std::optional<std::string> identity() const = 0;

    /// Passes over jobs that are done; false when there are not so many.
    bool skip(std::uint64_t count);

  protected:
    virtual bool skip_one() = 0;
};

/// Replies in files and folders.
std::unique_ptr<JobSource> make_file_source(const std::vector<std::string>& names,
                                            const Shard& shard);

/// Jobs as lines of a file; of standard input for an empty path. A part of the input is the lines
/// that begin in its share of the bytes. Throws MisuseError for an input that cannot be read, and
/// for a part of one that is not a file.
std::unique_ptr<JobSource> make_line_source(const std::string& path, const Shard& shard,
                                            const Event& stop);

}  // namespace zr::cli
