#include "cli/part_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string_view>

#include "cli/failure.h"
#include "cli/files.h"

namespace zr::cli {
namespace {

[[noreturn]] void unwritable(const std::string& path, int error) {
    throw OutputError("Cannot write " + path + ": " + std::strerror(error) + ".");
}

bool same_file(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// Opens the part file for this run alone.
int open_part(const std::string& path, const std::string& part_path) {
    struct stat before {};
    (void)place_of(part_path);  // a link has a message of its own
    const bool replaces = ::stat(path.c_str(), &before) == 0;
    for (;;) {
        const int descriptor =
            ::open(part_path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kPrivate);
        if (descriptor < 0) {
            unwritable(part_path, errno);
        }
        if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
            ::close(descriptor);
            throw OutputError("Another run is writing " + part_path + ".");
        }
        struct stat locked {};
        struct stat named {};
        if (::fstat(descriptor, &locked) == 0 && ::lstat(part_path.c_str(), &named) == 0 &&
            same_file(locked, named)) {
            if (replaces) {
                (void)::fchmod(descriptor, before.st_mode & 07777U);
            }
            return descriptor;
        }
        ::close(descriptor);  // another run has just finished it and given it its name
    }
}

}  // namespace

PartFile::PartFile(const std::string& path)
    : part_path_(path + ".part"),
      descriptor_(open_part(path, part_path_)),
      output_(path, part_path_, descriptor_) {
    if (::lseek(descriptor_, 0, SEEK_END) > 0) {
        throw OutputError(part_path_ +
                          " has the results of a run that did not end: move it away first.");
    }
}

PartFile::PartFile(const std::string& path, bool resume, RunIdentity& identity,
                   const ReadResult& read_result)
    : part_path_(path + ".part"),
      run_path_(part_path_ + ".run"),
      descriptor_(open_part(path, part_path_)),
      output_(path, part_path_, descriptor_) {
    const bool any = ::lseek(descriptor_, 0, SEEK_END) > 0;
    if (resume && any) {
        go_on(identity, read_result);
    } else {
        start_over(identity);
    }
}

PartFile::~PartFile() {
    struct stat status {};
    if (!complete_ && ::fstat(descriptor_, &status) == 0 && status.st_size == 0) {
        (void)::unlink(part_path_.c_str());
        (void)::unlink(run_path_.c_str());
    }
}

void PartFile::start_over(const RunIdentity& identity) {
    if (::ftruncate(descriptor_, 0) != 0 || ::lseek(descriptor_, 0, SEEK_SET) != 0) {
        unwritable(part_path_, errno);
    }
    Output run(run_path_);
    run.write(identity.run + "\n" + identity.day + "\n");
    run.finish();
}

void PartFile::go_on(RunIdentity& identity, const ReadResult& read_result) {
    std::string known;
    if (place_of(run_path_) == Place::kFile && ::access(run_path_.c_str(), F_OK) == 0) {
        known = read_text_file(run_path_);
    }
    const std::size_t end = known.find('\n');
    if (end == std::string::npos || known.substr(0, end) != identity.run) {
        throw MisuseError(part_path_ +
                          " has the results of another input or of other options: run without "
                          "--resume to begin anew.");
    }
    identity.day = known.substr(end + 1, known.find('\n', end + 1) - end - 1);
    count_results(read_result);
}

void PartFile::count_results(const ReadResult& read_result) {
    const auto size = static_cast<std::uint64_t>(::lseek(descriptor_, 0, SEEK_END));
    ::lseek(descriptor_, 0, SEEK_SET);
    LineReader lines(descriptor_);
    std::uint64_t whole = 0;
    std::string_view line;
    while (lines.next(line) && whole + line.size() < size) {  // no torn line at the end
        if (lines.too_long()) {
            throw MisuseError(part_path_ + " has a result of more than 256 MiB: begin anew.");
        }
        // A machine that loses its power may leave anything in the place of what was written last.
        const std::optional<bool> result = read_result(line, finished_);
        if (!result) {
            dropped_ = true;
            break;
        }
        whole += line.size() + 1;
        ++finished_;
        failed_ += *result ? 0 : 1;
    }
    const auto end = static_cast<off_t>(whole);
    if (::ftruncate(descriptor_, end) != 0 || ::lseek(descriptor_, end, SEEK_SET) != end) {
        unwritable(part_path_, errno);
    }
}

void PartFile::finish() {
    output_.sync();
    // Before the name is free: the next run may put its own there.
    if (!run_path_.empty()) {
        (void)::unlink(run_path_.c_str());
    }
    output_.finish();
    complete_ = true;
}

bool PartFile::finish(const std::function<bool(const std::string& part_path)>& convert) {
    output_.sync();
    if (!convert(part_path_)) {
        return false;
    }
    (void)::unlink(run_path_.c_str());
    (void)::unlink(part_path_.c_str());
    complete_ = true;
    return true;
}

}  // namespace zr::cli
