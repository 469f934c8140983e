#include "zrcreditbureau/job_source.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <limits>

#include "zrcreditbureau/failure.h"
#include "zrcreditbureau/files.h"
#include "zrcreditbureau/fingerprint.h"
#include "zrcreditbureau/ndjson.h"
#include "zrcreditbureau/reply_files.h"

namespace zr::cli {
namespace {

/// Few enough that workers share the jobs evenly, many enough that sharing costs nothing.
constexpr std::size_t kMostItems = 8;
constexpr std::size_t kMostBytes = std::size_t{256} << 10;

class FileSource final : public JobSource {
  public:
    FileSource(const std::vector<std::string>& names, const Shard& shard) : files_(names) {
        std::uint64_t count = 0;
        Fingerprint fingerprint;
        std::string path;
        for (ReplyFiles all(names); all.next(path); ++count) {
            fingerprint.add(path);
        }
        if (count == 0) {
            throw MisuseError("There is no *.xml file in what was named.");
        }
        total_ = shard.end(count) - shard.begin(count);
        for (std::uint64_t at = shard.begin(count); at > 0; --at) {
            (void)files_.next(path);
        }
        identity_ = "files " + std::to_string(shard.begin(count)) + " " +
                    std::to_string(shard.end(count)) + " " + fingerprint.text();
    }

    bool files() const override { return true; }
    std::optional<std::uint64_t> total() const override { return total_; }
    std::uint64_t taken() const override { return taken_; }
    std::optional<std::string> identity() const override { return identity_; }

    bool take(std::vector<BatchItem>& items) override {
        items.clear();
        std::string path;
        while (items.size() < kMostItems && taken_ < total_ && files_.next(path)) {
            items.push_back({std::move(path), ++taken_});
            path.clear();
        }
        return !items.empty();
    }

  protected:
    bool skip_one() override {
        std::string path;
        if (taken_ == total_ || !files_.next(path)) {
            return false;
        }
        ++taken_;
        return true;
    }

  private:
    ReplyFiles files_;
    std::uint64_t total_ = 0;
    std::atomic<std::uint64_t> taken_ = 0;
    std::string identity_;
};

/// The part of a file to read.
struct Range {
    std::uint64_t begin = 0;
    std::uint64_t end = std::numeric_limits<std::uint64_t>::max();
};

std::size_t read_at(int descriptor, std::uint64_t at, char* target, std::size_t size) {
    for (;;) {
        const ssize_t count = ::pread(descriptor, target, size, static_cast<off_t>(at));
        if (count >= 0) {
            return static_cast<std::size_t>(count);
        }
        if (errno != EINTR) {
            throw MisuseError(std::string("Cannot read the input: ") + std::strerror(errno) + ".");
        }
    }
}

/// Where the first line at or behind `at` begins.
std::uint64_t line_start(int descriptor, const Range& file, std::uint64_t at) {
    if (at == file.begin) {
        return at;
    }
    std::vector<char> buffer(kMostBytes);
    for (--at; at < file.end;) {
        const std::size_t count = read_at(descriptor, at, buffer.data(), buffer.size());
        const auto end = buffer.begin() + static_cast<std::ptrdiff_t>(count);
        const auto feed = std::find(buffer.begin(), end, '\n');
        at += static_cast<std::uint64_t>(feed - buffer.begin());
        if (feed != end) {
            return at + 1;
        }
        if (count == 0) {
            break;
        }
    }
    return file.end;
}

/// Tells inputs apart by their ends.
std::string range_identity(int descriptor, const Range& range) {
    Fingerprint fingerprint;
    std::vector<char> buffer(kMostBytes);
    const std::uint64_t size = std::min<std::uint64_t>(range.end - range.begin, buffer.size());
    for (const std::uint64_t at : {range.begin, range.end - size}) {
        fingerprint.add({buffer.data(), read_at(descriptor, at, buffer.data(), size)});
    }
    return "lines " + std::to_string(range.begin) + " " + std::to_string(range.end) + " " +
           fingerprint.text();
}

class LineSource final : public JobSource {
  public:
    LineSource(const std::string& path, const Shard& shard, const Event& stop)
        : file_(path.empty() ? ::dup(STDIN_FILENO) : open_file(path)),
          stop_(stop),
          range_(range(file_.get(), shard)),
          lines_(
              file_.get(), [this] { return wait_readable(file_.get(), stop_); },
              range_.end - range_.begin) {}

    bool files() const override { return false; }
    std::optional<std::uint64_t> total() const override {
        return identity_ ? std::optional(range_.end - range_.begin) : std::nullopt;
    }
    std::uint64_t taken() const override { return taken_; }
    std::optional<std::string> identity() const override { return identity_; }

    bool take(std::vector<BatchItem>& items) override {
        items.clear();
        std::size_t bytes = 0;
        std::string_view line;
        while ((items.empty() || lines_.ready()) && items.size() < kMostItems &&
               bytes < kMostBytes && lines_.next(line)) {
            if (stop_.is_set()) {
                break;  // what was read may be half a line
            }
            note(line);
            bytes += line.size();
            items.push_back({std::string(line), number_, lines_.too_long()});
        }
        return !items.empty();
    }

  protected:
    bool skip_one() override {
        std::string_view line;
        if (!lines_.next(line)) {
            return false;
        }
        note(line);
        return true;
    }

  private:
    Range range(int descriptor, const Shard& shard) {
        struct stat status {};
        if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
            if (S_ISDIR(status.st_mode)) {
                throw MisuseError("The jobs are read from a file, and a folder was named.");
            }
            if (!shard.is_whole()) {
                throw MisuseError(
                    "--shard needs an input whose size is known: name files, folders or --input "
                    "FILE.");
            }
            return {};
        }
        const auto from = static_cast<std::uint64_t>(::lseek(descriptor, 0, SEEK_CUR));
        const Range file{from, std::max(from, static_cast<std::uint64_t>(status.st_size))};
        const std::uint64_t size = file.end - file.begin;
        const Range part{line_start(descriptor, file, from + shard.begin(size)),
                         line_start(descriptor, file, from + shard.end(size))};
        identity_ = range_identity(descriptor, part);
        ::lseek(descriptor, static_cast<off_t>(part.begin), SEEK_SET);
        return part;
    }

    /// Counts a line that was read.
    void note(std::string_view& line) {
        taken_ += line.size() + 1;
        ++number_;
        if (number_ == 1 && range_.begin == 0 && line.starts_with(kByteOrderMark)) {
            line.remove_prefix(kByteOrderMark.size());
        }
    }

    Descriptor file_;
    const Event& stop_;
    std::optional<std::string> identity_;  ///< before range_, which sets it
    Range range_;
    LineReader lines_;
    std::uint64_t number_ = 0;
    std::atomic<std::uint64_t> taken_ = 0;
};

}  // namespace

bool JobSource::skip(std::uint64_t count) {
    while (count > 0 && skip_one()) {
        --count;
    }
    return count == 0;
}

std::unique_ptr<JobSource> make_file_source(const std::vector<std::string>& names,
                                            const Shard& shard) {
    return std::make_unique<FileSource>(names, shard);
}

std::unique_ptr<JobSource> make_line_source(const std::string& path, const Shard& shard,
                                            const Event& stop) {
    return std::make_unique<LineSource>(path, shard, stop);
}

}  // namespace zr::cli
