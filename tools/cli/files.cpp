#include "cli/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "cli/failure.h"
#include "values/text.h"
#include "zrcreditbureau/error.h"

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

/// Content as text, and the encoding that it was in.
std::string decoded(std::string content, const std::string& what, std::string& charset) {
    constexpr struct {
        std::string_view mark;
        const char* charset;
    } kMarks[] = {{"\xEF\xBB\xBF", "UTF-8"}, {"\xFF\xFE", "UTF-16LE"}, {"\xFE\xFF", "UTF-16BE"}};
    charset = "UTF-8";
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

std::string read_text_file(const std::string& path, std::string& encoding) {
    if (path == "-") {
        return decoded(read_all(STDIN_FILENO, "standard input"), "Standard input", encoding);
    }
    const Descriptor file(open_file(path));
    return decoded(read_all(file.get(), path), path, encoding);
}

std::string read_text_file(const std::string& path) {
    std::string encoding;
    return read_text_file(path, encoding);
}

Descriptor::~Descriptor() { ::close(descriptor_); }

int open_file(const std::string& path) {
    const int descriptor = path == "-" ? ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)
                                       : ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
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
            take_line(line, at);
            scanned_ = begin_ = at + 1;
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
    take_line(line, end_);
    begin_ = end_;
    return any;
}

void LineReader::take_line(std::string_view& line, std::size_t end) {
    too_long_ = too_long_ || end - begin_ > kLargestInput;
    if (!too_long_) {
        line = {buffer_.data() + begin_, end - begin_};
    }
}

}  // namespace zr::cli
