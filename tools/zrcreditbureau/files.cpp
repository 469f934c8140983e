#include "zrcreditbureau/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "platform/error.h"
#include "values/text.h"
#include "zrcreditbureau/failure.h"

namespace zr::cli {
namespace {

constexpr std::size_t kChunk = std::size_t{256} << 10;

/// Reads once, however often a signal interrupts it; -1 with errno set where it fails.
ssize_t read_some(int descriptor, char* target, std::size_t size) {
    ssize_t count = 0;
    do {
        count = ::read(descriptor, target, size);
    } while (count < 0 && errno == EINTR);
    return count;
}

[[noreturn]] void unreadable(const std::string& what, int error) {
    throw MisuseError("Cannot read " + what + ": " + std::strerror(error) + ".");
}

std::string read_all(int descriptor, const std::string& what) {
    std::string content;
    for (;;) {
        const std::size_t size = content.size();
        if (size > kLargestInput) {
            throw MisuseError(what + " is larger than 256 MiB.");
        }
        content.resize(size + kChunk);
        const ssize_t count = read_some(descriptor, content.data() + size, kChunk);
        if (count < 0) {
            unreadable(what, errno);
        }
        content.resize(size + static_cast<std::size_t>(count));
        if (count == 0) {
            return content;
        }
    }
}

/// The encoding that an XML declaration names; "" without one.
std::string declared_encoding(std::string_view xml) {
    const std::string_view declaration = xml.substr(0, xml.find("?>"));
    const std::size_t name = declaration.find("encoding");
    if (!xml.starts_with("<?xml") || name == std::string_view::npos) {
        return {};
    }
    const std::size_t open = declaration.find_first_of("\"'", name);
    if (open == std::string_view::npos) {
        return {};
    }
    const std::size_t close = declaration.find(declaration[open], open + 1);
    return std::string(declaration.substr(open + 1, close - open - 1));
}

std::string decoded(std::string content, const std::string& what) {
    constexpr struct {
        std::string_view mark;
        const char* charset;
    } kMarks[] = {{"\xEF\xBB\xBF", "UTF-8"}, {"\xFF\xFE", "UTF-16LE"}, {"\xFE\xFF", "UTF-16BE"}};
    std::string charset = "UTF-8";
    for (const auto& row : kMarks) {
        if (content.starts_with(row.mark)) {
            content.erase(0, row.mark.size());
            charset = row.charset;
            break;
        }
    }
    if (charset == "UTF-8") {
        if (text::is_valid_utf8(content)) {
            return content;
        }
        charset = declared_encoding(content);
    }
    if (charset.empty() || text::equal_ignoring_case(charset, "UTF-8")) {
        throw MisuseError(what + " is not UTF-8 text.");
    }
    try {
        return text::decode(content, charset);
    } catch (const PlatformError&) {
        throw MisuseError(what + " is in an encoding that is not known.");
    }
}

}  // namespace

std::string read_text_file(const std::string& path) {
    if (path == "-") {
        return decoded(read_all(STDIN_FILENO, "standard input"), "Standard input");
    }
    const Descriptor file(open_file(path));
    return decoded(read_all(file.get(), path), path);
}

Descriptor::~Descriptor() { ::close(descriptor_); }

int open_file(const std::string& path) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        unreadable(path, errno);
    }
    return descriptor;
}

bool LineReader::fill() {
    if (begin_ != 0) {
        std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
        scanned_ -= begin_;
        end_ -= begin_;
        begin_ = 0;
    }
    if (buffer_.size() - end_ < kChunk) {
        buffer_.resize(buffer_.size() * 2 + kChunk);
    }
    const std::size_t room = std::min<std::uint64_t>(left_, buffer_.size() - end_);
    if (room == 0 || !before_waiting_()) {
        return false;
    }
    const ssize_t count = read_some(descriptor_, buffer_.data() + end_, room);
    if (count < 0) {
        unreadable("the input", errno);
    }
    end_ += static_cast<std::size_t>(count);
    left_ -= static_cast<std::uint64_t>(count);
    return count != 0;
}

bool LineReader::ready() {
    return scanned_ < end_ &&
           std::memchr(buffer_.data() + scanned_, '\n', end_ - scanned_) != nullptr;
}

bool LineReader::next(std::string_view& line) {
    too_long_ = false;
    line = {};
    while (!at_end_) {
        const void* feed = nullptr;
        if (scanned_ < end_) {
            feed = std::memchr(buffer_.data() + scanned_, '\n', end_ - scanned_);
        }
        if (feed != nullptr) {
            const auto at =
                static_cast<std::size_t>(static_cast<const char*>(feed) - buffer_.data());
            if (!too_long_) {
                line = {buffer_.data() + begin_, at - begin_};
            }
            begin_ = scanned_ = at + 1;
            return true;
        }
        scanned_ = end_;
        if (end_ - begin_ > kLargestInput) {
            too_long_ = true;  // the rest of the line is passed over
            begin_ = end_;
        }
        at_end_ = !fill();
    }
    const bool any = begin_ != end_ || too_long_;
    if (!too_long_) {
        line = {buffer_.data() + begin_, end_ - begin_};
    }
    begin_ = end_;
    return any;
}

Output::Output(std::string path) : path_(std::move(path)) {
    if (path_.empty()) {
        return;
    }
    struct stat status {};
    const bool exists = ::stat(path_.c_str(), &status) == 0;
    if (exists && S_ISDIR(status.st_mode)) {
        throw OutputError("Cannot write " + path_ + ": it is a folder.");
    }
    if (exists && !S_ISREG(status.st_mode)) {
        // A device or a pipe has no name to take.
        descriptor_ = ::open(path_.c_str(), O_WRONLY | O_CLOEXEC);
    } else {
        temporary_path_ = path_ + ".XXXXXX";
        descriptor_ = ::mkstemp(temporary_path_.data());
        if (descriptor_ >= 0) {
            // Readable to those whom the user's own files are; a file replaced keeps its mode.
            const mode_t mask = ::umask(0);
            ::umask(mask);
            (void)::fchmod(descriptor_, exists ? status.st_mode & 07777U : 0666U & ~mask);
        }
    }
    if (descriptor_ < 0) {
        const int error = errno;
        temporary_path_.clear();
        throw OutputError("Cannot write " + path_ + ": " + std::strerror(error) + ".");
    }
}

Output::Output(std::string path, std::string temporary_path, int descriptor)
    : path_(std::move(path)),
      temporary_path_(std::move(temporary_path)),
      descriptor_(descriptor),
      stays_(true) {}

Output::~Output() {
    if (!path_.empty()) {
        ::close(descriptor_);
    }
    if (!temporary_path_.empty() && !stays_) {
        ::unlink(temporary_path_.c_str());
    }
}

void Output::write(std::string_view text) {
    if (pending_.size() + text.size() < kChunk) {
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
        } else if (errno == EPIPE) {
            throw BrokenPipe();
        } else if (errno != EINTR) {
            throw OutputError("Cannot write " + (path_.empty() ? "standard output" : path_) + ": " +
                              std::strerror(errno) + ".");
        }
    }
}

void Output::finish() {
    flush();
    if (!temporary_path_.empty()) {
        if (::rename(temporary_path_.c_str(), path_.c_str()) != 0) {
            throw OutputError("Cannot write " + path_ + ": " + std::strerror(errno) + ".");
        }
        temporary_path_.clear();
    }
}

}  // namespace zr::cli
