#include "platform/http_head.h"

#include <charconv>
#include <limits>
#include <utility>

#include "platform/unicode.h"

namespace zr {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view trim(std::string_view value) {
    value.remove_prefix(std::min(value.find_first_not_of(kBlanks), value.size()));
    return value.substr(0, value.find_last_not_of(kBlanks) + 1);
}

[[noreturn]] void refuse_length() {
    throw PlatformError(error_number::kInvalidReply,
                        "The reply of the server is not valid: its length is not one number");
}

/// A length of digits alone that a file could have.
std::uint64_t read_length(std::string_view digits) {
    std::uint64_t value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    if (error != std::errc() || stop != end ||
        value > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()))
        refuse_length();
    return value;
}

}  // namespace

PlatformError http_headers_too_large() {
    return {error_number::kInvalidReply, "The headers of the reply are larger than " +
                                             std::to_string(HttpHeads::kMostBytes) + " bytes or " +
                                             std::to_string(HttpHeads::kMostLines) + " lines"};
}

void HttpHeads::take(std::string_view line) {
    bytes_ += static_cast<std::int64_t>(line.size());
    if (bytes_ > kMostBytes || ++lines_ > kMostLines) throw http_headers_too_large();
    line = line.substr(0, line.find_last_not_of(kBlanks) + 1);
    const bool may_begin = std::exchange(status_line_is_next_, line.empty());
    if (line.empty())
        is_complete_ = true;
    else if (may_begin && line.starts_with("HTTP/"))
        begin(line);
    else
        take_field(line);
}

void HttpHeads::begin(std::string_view status_line) {
    is_complete_ = false;
    length_.reset();
    const std::size_t code = std::min(status_line.find(' '), status_line.size());
    const std::string_view status = status_line.substr(code).substr(0, 5);
    const std::size_t reason = status_line.find(' ', code + 1);
    status_text_ = reason == std::string_view::npos ? "" : status_line.substr(reason + 1);
    if (status.starts_with(" 401")) ++refusals_;
    // A proxy may want to be convinced anew on every connection.
    if (!status.starts_with(" 1"))
        proxy_refusals_ = status.starts_with(" 407") ? proxy_refusals_ + 1 : 0;
}

/// The library reads a length as far as it is one, and takes the last of several.
void HttpHeads::take_field(std::string_view line) {
    const std::size_t colon = std::min(line.find(':'), line.size());
    const std::string_view name = line.substr(0, colon);
    if (!text::equal_ignoring_case(trim(name), "Content-Length")) return;
    if (trim(name) != name || colon == line.size()) refuse_length();
    for (std::string_view rest = line.substr(colon);;) {
        rest.remove_prefix(1);
        const std::size_t comma = rest.find(',');
        const std::uint64_t length = read_length(trim(rest.substr(0, comma)));
        if (length_.value_or(length) != length) refuse_length();
        length_ = length;
        if (comma == std::string_view::npos) return;
        rest.remove_prefix(comma);
    }
}

}  // namespace zr
