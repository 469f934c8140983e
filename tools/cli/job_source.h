// The jobs of a batch, in their order: from files of replies, or from lines of NDJSON.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "cli/interruption.h"
#include "cli/job.h"
#include "cli/shard.h"

namespace zr::cli {

/// A job not yet read: a reply's file, or a line.
struct BatchItem {
    std::string text;       ///< the file's name, or the line
    std::size_t bytes;      ///< of the file or the line
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
    /// Takes the jobs that are at hand, up to a number and to a modest size together: waits for the
    /// first one only. False when there are none any more, or when the run is to stop.
    virtual bool take(std::vector<BatchItem>& items, std::size_t most) = 0;
    /// How many jobs or bytes there are, where that is known.
    virtual std::optional<std::uint64_t> total() const = 0;
    /// How much of `total` was taken.
    virtual std::uint64_t taken() const = 0;
    /// What tells this input from another; nothing for one that cannot be read again.
    virtual std::optional<std::string> identity() const = 0;

    /// The file of the job with this number, counted from 0; "" where jobs are lines.
    virtual std::string_view file(std::uint64_t number) const = 0;
    /// Passes over jobs that are done; false when there are not so many.
    virtual bool skip(std::uint64_t count) = 0;
    /// What people are told about the input before the run, and behind it about what has been added
    /// since, which is not among the jobs.
    virtual std::vector<std::string> remarks() const = 0;
    virtual std::vector<std::string> additions() const = 0;
};

/// Replies in files and folders, as they are when this is called, but for those that are `done`.
/// Throws MisuseError where the file `output` is one of them.
std::unique_ptr<JobSource> make_file_source(const std::vector<std::string>& names,
                                            const Shard& shard, const std::string& output,
                                            const std::set<std::string>& done, bool may_be_none);

/// Jobs as lines of a file; of standard input for "-". A part of the input is the lines
/// that begin in its share of the bytes. Throws MisuseError for an input that cannot be read, and
/// for a part of one that is not a file.
std::unique_ptr<JobSource> make_line_source(const std::string& path, const Shard& shard,
                                            const Event& stop);

}  // namespace zr::cli
