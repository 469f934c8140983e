#include "cli/output.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

namespace zr::cli {
namespace {

constexpr std::size_t kWrittenAtOnce = std::size_t{256} << 10;

/// Room for a result: fifty times that of a usual report.
constexpr off_t kRoom = off_t{4} << 20;

[[noreturn]] void unwritable(const std::string& what, const char* reason) {
    throw OutputError("Cannot write " + what + ": " + reason + ".");
}

std::string folder_of(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

std::string descriptor_path(int descriptor) {
    return "/proc/self/fd/" + std::to_string(descriptor);
}

bool is_file(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

std::filesystem::path resolved(const std::string& path) {
    std::error_code error;
    return std::filesystem::weakly_canonical(std::filesystem::absolute(path, error), error);
}

bool exceeds_file_limit(off_t size) {
    rlimit limit{};
    return ::getrlimit(RLIMIT_FSIZE, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY &&
           static_cast<rlim_t>(size) > limit.rlim_cur;
}

}  // namespace

Place place_of(const std::string& path) {
    if (path.empty() || path == "/dev/stdout") {
        return Place::kStandardOutput;
    }
    struct stat status {};
    const bool exists = ::stat(path.c_str(), &status) == 0;
    if (exists && S_ISDIR(status.st_mode)) {
        unwritable(path, "it is a folder");
    }
    if (exists && !S_ISREG(status.st_mode)) {
        return Place::kInPlace;
    }
    struct stat link {};
    if (::lstat(path.c_str(), &link) == 0 && S_ISLNK(link.st_mode)) {
        unwritable(path, "it is a symbolic link");
    }
    return Place::kFile;
}

void refuse_same_file(const std::string& input, const std::string& output) {
    if (input.empty() || output.empty()) {
        return;
    }
    struct stat one {};
    struct stat other {};
    const bool same =
        ::stat(input.c_str(), &one) == 0 && ::stat(output.c_str(), &other) == 0
            ? S_ISREG(one.st_mode) && one.st_dev == other.st_dev && one.st_ino == other.st_ino
            : resolved(input) == resolved(output);
    if (same) {
        throw MisuseError(output + " would be overwritten, and is named for something else too.");
    }
}

Output::Output(const std::string& path, mode_t mode) {
    switch (place_of(path)) {
        case Place::kStandardOutput:
            return;
        case Place::kInPlace:
            path_ = path;
            descriptor_ = ::open(path_.c_str(), O_WRONLY | O_CLOEXEC);
            break;
        case Place::kFile:
            path_ = path;
            replaces_ = true;
            if (!open_nameless(mode)) {
                open_named(mode);
            }
            break;
    }
    if (descriptor_ < 0) {
        const int error = errno;
        temporary_path_.clear();
        fail(error);
    }
    struct stat status {};
    if (replaces_ && ::stat(path_.c_str(), &status) == 0) {
        (void)::fchmod(descriptor_, status.st_mode & 07777U);
    }
}

Output::Output(std::string path, std::string temporary_path, int descriptor)
    : path_(std::move(path)),
      temporary_path_(std::move(temporary_path)),
      descriptor_(descriptor),
      replaces_(true),
      stays_(true) {}

Output::~Output() {
    if (!path_.empty()) {
        ::close(descriptor_);
    }
    if (!temporary_path_.empty() && !stays_) {
        ::unlink(temporary_path_.c_str());
    }
}

/// A file without a name is gone with the process, however that ends. Not every file system has
/// them.
bool Output::open_nameless(mode_t mode) {
    descriptor_ = ::open(folder_of(path_).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, mode);
    if (descriptor_ >= 0 && ::access(descriptor_path(descriptor_).c_str(), F_OK) != 0) {
        ::close(descriptor_);  // it could not be given a name
        descriptor_ = -1;
    }
    return descriptor_ >= 0;
}

void Output::open_named(mode_t mode) {
    temporary_path_ = path_ + ".XXXXXX";
    descriptor_ = ::mkstemp(temporary_path_.data());
    const mode_t mask = ::umask(0);
    ::umask(mask);
    if (descriptor_ >= 0) {
        (void)::fchmod(descriptor_, mode & ~mask);
    }
}

void Output::give_name() {
    const std::string open = descriptor_path(descriptor_);
    for (unsigned number = 0;; ++number) {
        const std::string name =
            path_ + "." + std::to_string(::getpid()) + "." + std::to_string(number);
        if (::linkat(AT_FDCWD, open.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) {
            temporary_path_ = name;
            return;
        }
        if (errno != EEXIST) {
            fail(errno);
        }
    }
}

void Output::fail(int error) const {
    unwritable(path_.empty() ? "standard output" : path_, std::strerror(error));
}

void Output::write(std::string_view text) {
    if (pending_.size() + text.size() < kWrittenAtOnce) {
        pending_ += text;
        return;
    }
    flush();
    send(text);
}

void Output::flush() {
    send(pending_);
    pending_.clear();
}

void Output::send(std::string_view rest) {
    while (!rest.empty()) {
        const ssize_t count = ::write(descriptor_, rest.data(), rest.size());
        if (count >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(count));
            unsynced_ += static_cast<std::size_t>(count);
        } else if (errno == EPIPE) {
            throw BrokenPipe();
        } else if (errno != EINTR) {
            fail(errno);
        }
    }
}

void Output::sync() {
    flush();
    if (is_file(descriptor_) && ::fdatasync(descriptor_) != 0) {
        fail(errno);
    }
    unsynced_ = 0;
}

void Output::finish() {
    if (!replaces_) {
        flush();
        return;
    }
    sync();
    // Gives back room that was set aside.
    (void)::ftruncate(descriptor_, ::lseek(descriptor_, 0, SEEK_CUR));
    if (temporary_path_.empty()) {
        give_name();
    }
    if (::rename(temporary_path_.c_str(), path_.c_str()) != 0) {
        fail(errno);
    }
    temporary_path_.clear();
    const int folder = ::open(folder_of(path_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder >= 0) {
        (void)::fsync(folder);
        ::close(folder);
    }
}

void Output::need_room() {
    if (!is_file(descriptor_)) {
        return;
    }
    const off_t at = ::lseek(descriptor_, 0, SEEK_CUR);
    if (exceeds_file_limit(at + kRoom)) {
        fail(EFBIG);
    }
    // A file of our own gets the room; of another's we only ask.
    if (replaces_ && ::fallocate(descriptor_, FALLOC_FL_KEEP_SIZE, at, kRoom) == 0) {
        return;
    }
    if (replaces_ && errno != EOPNOTSUPP) {
        fail(errno);
    }
    struct statvfs system {};
    if (::fstatvfs(descriptor_, &system) == 0 &&
        system.f_bavail < static_cast<std::uint64_t>(kRoom) / system.f_frsize) {
        fail(ENOSPC);
    }
}

void Output::take_back() {
    pending_.clear();
    if (unsynced_ == 0 || !is_file(descriptor_)) {
        return;
    }
    const off_t whole =
        ::lseek(descriptor_, 0, SEEK_CUR) - static_cast<off_t>(std::exchange(unsynced_, 0));
    if (::ftruncate(descriptor_, whole) == 0) {
        (void)::lseek(descriptor_, whole, SEEK_SET);
    }
}

}  // namespace zr::cli
