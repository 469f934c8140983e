#include "zrcreditbureau/part_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string_view>

#include "zrcreditbureau/failure.h"

namespace zr::cli {
namespace {

[[noreturn]] void unwritable(const std::string& path, int error) {
    throw OutputError("Cannot write " + path + ": " + std::strerror(error) + ".");
}

/// Opens the part file for this run alone.
int open_part(const std::string& path, const std::string& part_path) {
    struct stat status {};
    const bool exists = ::stat(path.c_str(), &status) == 0;
    const int descriptor = ::open(part_path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        unwritable(part_path, errno);
    }
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        ::close(descriptor);
        throw OutputError("Another run is writing " + part_path + ".");
    }
    if (exists) {
        (void)::fchmod(descriptor, status.st_mode & 07777U);  // a file replaced keeps its mode
    }
    return descriptor;
}

/// The text behind the JSON text that begins at `at`, which is its quotation mark.
std::size_t behind_text(std::string_view line, std::size_t at) {
    for (++at; at < line.size() && line[at] != '"'; ++at) {
        at += line[at] == '\\' ? 1 : 0;
    }
    return at + 1;
}

/// Whether a result says that its job failed.
bool says_failed(std::string_view line) {
    constexpr std::string_view kFile = "{\"File\":";
    constexpr std::string_view kFailed = "\"Result\":false";
    const std::size_t result = line.starts_with(kFile) ? behind_text(line, kFile.size()) + 1 : 1;
    return result < line.size() && line.substr(result).starts_with(kFailed);
}

}  // namespace

bool PartFile::is_possible(const std::string& path) {
    struct stat status {};
    return !path.empty() && (::stat(path.c_str(), &status) != 0 || S_ISREG(status.st_mode));
}

PartFile::PartFile(const std::string& path, bool resume, RunIdentity& identity)
    : path_(path),
      part_path_(path + ".part"),
      run_path_(part_path_ + ".run"),
      descriptor_(open_part(path, part_path_)),
      output_(path, part_path_, descriptor_) {
    const bool any = ::lseek(descriptor_, 0, SEEK_END) > 0;
    if (resume && any) {
        go_on(identity);
    } else {
        start_over(identity);
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

void PartFile::go_on(RunIdentity& identity) {
    std::string known;
    if (::access(run_path_.c_str(), F_OK) == 0) {
        known = read_text_file(run_path_);
    }
    const std::size_t end = known.find('\n');
    if (end == std::string::npos || known.substr(0, end) != identity.run) {
        throw MisuseError(part_path_ +
                          " has the results of another input or of other options: run without "
                          "--resume to begin anew.");
    }
    identity.day = known.substr(end + 1, known.find('\n', end + 1) - end - 1);
    count_results();
}

void PartFile::count_results() {
    const auto size = static_cast<std::uint64_t>(::lseek(descriptor_, 0, SEEK_END));
    ::lseek(descriptor_, 0, SEEK_SET);
    LineReader lines(descriptor_, [] { return true; });
    std::uint64_t whole = 0;
    std::string_view line;
    while (lines.next(line) && whole + line.size() < size) {  // no torn line at the end
        if (lines.too_long()) {
            throw MisuseError(part_path_ + " has a result of more than 256 MiB: begin anew.");
        }
        whole += line.size() + 1;
        ++finished_;
        failed_ += says_failed(line) ? 1 : 0;
    }
    const auto end = static_cast<off_t>(whole);
    if (::ftruncate(descriptor_, end) != 0 || ::lseek(descriptor_, end, SEEK_SET) != end) {
        unwritable(part_path_, errno);
    }
}

void PartFile::finish() {
    output_.finish();
    (void)::unlink(run_path_.c_str());
}

}  // namespace zr::cli
