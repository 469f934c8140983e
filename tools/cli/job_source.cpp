#include "cli/job_source.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <functional>
#include <limits>

#include "cli/answer.h"
#include "cli/failure.h"
#include "cli/files.h"
#include "cli/fingerprint.h"
#include "cli/output.h"
#include "cli/reply_files.h"

namespace zr::cli {
namespace {

/// Jobs taken together stop growing here: so few bytes cost nothing to hold.
constexpr std::size_t kMostBytes = std::size_t{256} << 10;

/// Many texts in little memory.
class Texts {
  public:
    void add(std::string_view text) {
        pool_ += text;
        ends_.push_back(pool_.size());
    }
    std::size_t size() const { return ends_.size(); }
    std::string_view operator[](std::size_t at) const {
        const std::size_t begin = at == 0 ? 0 : ends_[at - 1];
        return std::string_view(pool_).substr(begin, ends_[at] - begin);
    }

  private:
    std::string pool_;
    std::vector<std::size_t> ends_;
};

std::size_t size_of_file(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? static_cast<std::size_t>(status.st_size) : 0;
}

class FileSource final : public JobSource {
  public:
    FileSource(const std::vector<std::string>& names, const Shard& shard, const std::string& output,
               const std::set<std::string>& done, bool may_be_none)
        : names_(names), done_(done) {
        Fingerprint fingerprint;
        ReplyFiles walk(names_);
        for (std::string path; walk.next(path);) {
            if (!done_.contains(path)) {
                all_.add(path);
                fingerprint.add(path);
                refuse_same_file(path, output);
            }
        }
        for (const std::string& name : walk.passed_over()) {
            remarks_.push_back(name + " is a pipe or a device: passed over.");
        }
        if (all_.size() == 0 && !may_be_none) {
            throw MisuseError("There is no *.xml file in what was named.");
        }
        begin_ = shard.begin(all_.size());
        end_ = shard.end(all_.size());
        identity_ = "files " + std::to_string(begin_) + " " + std::to_string(end_) + " " +
                    fingerprint.text();
    }

    bool files() const override { return true; }
    std::optional<std::uint64_t> total() const override { return end_ - begin_; }
    std::uint64_t taken() const override { return taken_; }
    std::optional<std::string> identity() const override { return identity_; }
    std::string_view file(std::uint64_t number) const override {
        return begin_ + number < end_ ? all_[begin_ + number] : std::string_view();
    }

    bool take(std::vector<BatchItem>& items, std::size_t most) override {
        items.clear();
        for (std::size_t bytes = 0;
             items.size() < most && bytes < kMostBytes && taken_ < end_ - begin_; ++taken_) {
            std::string path(file(taken_));
            const std::size_t size = size_of_file(path);
            bytes += size;
            items.push_back({std::move(path), size, taken_ + 1});
        }
        return !items.empty();
    }

    bool skip(std::uint64_t count) override {
        taken_ = std::min(count, end_ - begin_);
        return taken_ == count;
    }

    std::vector<std::string> remarks() const override { return remarks_; }

    std::vector<std::string> additions() const override {
        std::vector<std::size_t> known;
        known.reserve(all_.size());
        const std::hash<std::string_view> hash;
        for (std::size_t at = 0; at < all_.size(); ++at) {
            known.push_back(hash(all_[at]));
        }
        std::sort(known.begin(), known.end());
        std::vector<std::string> found;
        try {
            ReplyFiles walk(names_);
            for (std::string path; walk.next(path);) {
                if (!done_.contains(path) &&
                    !std::binary_search(known.begin(), known.end(), hash(path))) {
                    found.push_back(path + " was added while the run went on: it has no result.");
                }
            }
        } catch (const MisuseError& error) {
            found.emplace_back(error.what());  // a folder that has been removed
        }
        return found;
    }

  private:
    std::vector<std::string> names_;
    std::set<std::string> done_;
    Texts all_;
    std::uint64_t begin_ = 0;  // of the shard
    std::uint64_t end_ = 0;
    std::atomic<std::uint64_t> taken_ = 0;
    std::string identity_;
    std::vector<std::string> remarks_;
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
        : file_(open_file(path)),
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

    std::string_view file(std::uint64_t /*number*/) const override { return {}; }

    bool take(std::vector<BatchItem>& items, std::size_t most) override {
        items.clear();
        std::size_t bytes = 0;
        std::string_view line;
        while ((items.empty() || lines_.ready()) && items.size() < most && bytes < kMostBytes &&
               lines_.next(line)) {
            if (stop_.is_set()) {
                break;  // what was read may be half a line
            }
            note(line);
            bytes += line.size();
            items.push_back({std::string(line), line.size(), number_, lines_.too_long()});
        }
        return !items.empty();
    }

    bool skip(std::uint64_t count) override {
        for (std::string_view line; count > 0 && lines_.next(line); --count) {
            note(line);
        }
        return count == 0;
    }

    std::vector<std::string> remarks() const override { return {}; }

    std::vector<std::string> additions() const override {
        struct stat status {};
        if (!identity_ || ::fstat(file_.get(), &status) != 0 ||
            static_cast<std::uint64_t>(status.st_size) == size_) {
            return {};
        }
        return {
            "The file of jobs has changed while the run went on: what was added to it has no "
            "result."};
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
        size_ = static_cast<std::uint64_t>(status.st_size);
        const Range file{from, std::max(from, size_)};
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
    std::uint64_t size_ = 0;               ///< of the file, likewise
    Range range_;
    LineReader lines_;
    std::uint64_t number_ = 0;
    std::atomic<std::uint64_t> taken_ = 0;
};

}  // namespace

std::unique_ptr<JobSource> make_file_source(const std::vector<std::string>& names,
                                            const Shard& shard, const std::string& output,
                                            const std::set<std::string>& done, bool may_be_none) {
    return std::make_unique<FileSource>(names, shard, output, done, may_be_none);
}

std::unique_ptr<JobSource> make_line_source(const std::string& path, const Shard& shard,
                                            const Event& stop) {
    return std::make_unique<LineSource>(path, shard, stop);
}

}  // namespace zr::cli
