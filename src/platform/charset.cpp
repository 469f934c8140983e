#include "platform/charset.h"

#include <algorithm>
#include <cctype>
#include <initializer_list>

#include "platform/unicode.h"
#include "zrcreditbureau/error.h"

namespace zr::text {
namespace {

bool contains_any(std::string_view name, std::initializer_list<std::string_view> parts) {
    return std::any_of(parts.begin(), parts.end(), [&](std::string_view part) {
        return name.find(part) != std::string_view::npos;
    });
}

constexpr std::size_t kLongestName = 40;
constexpr char32_t kReplacement = 0xFFFD;

bool is_plain(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x80 &&
           (std::isalnum(byte) != 0 || std::string_view("-_.:+").find(c) != std::string::npos);
}

// The name comes from a server: neither a path nor a conversion option may hide in it.
bool is_safe_name(const std::string& name) {
    return !name.empty() && name.size() <= kLongestName &&
           std::all_of(name.begin(), name.end(), is_plain) && !hides_markup(name);
}

// As a message may show it: short and without anything that is in no charset's name.
std::string presentable(const std::string& name) {
    std::string shown = name.substr(0, kLongestName);
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return !is_plain(c); }, '?');
    return shown;
}

bool has_wide_units(std::string_view upper_name) {
    return contains_any(upper_name, {"UTF-32", "UTF32", "UCS-4", "UCS4", "UTF-16", "UTF16", "UCS-2",
                                     "UCS2", "10646", "UNICODE"});
}

// Half of a surrogate pair, written as if it were a character.
bool has_surrogate(std::string_view bytes) {
    const auto is_between = [&](std::size_t position, unsigned char least) {
        const auto byte = static_cast<unsigned char>(bytes[position]);
        return byte >= least && byte <= 0xBF;
    };
    for (std::size_t at = 0; (at = bytes.find('\xED', at)) != std::string_view::npos; ++at) {
        if (bytes.size() - at > 2 && is_between(at + 1, 0xA0) && is_between(at + 2, 0x80)) {
            return true;
        }
    }
    return false;
}

[[noreturn]] void refuse_text() {
    throw PlatformError(error_number::kInvalidReply,
                        "The reply is not valid text in its character set");
}

}  // namespace

bool hides_markup(std::string_view charset) {
    return contains_any(upper(charset), {"UTF-7", "UTF7", "HZ"});
}

std::string decode(std::string_view bytes, const std::string& charset) {
    const std::string name = upper(charset);
    if (name == "UTF-8" || name == "UTF8") {
        if (has_surrogate(bytes)) {
            refuse_text();
        }
        return to_valid_utf8(bytes);
    }
    const std::unique_ptr<CharsetDecoder> decoder =
        is_safe_name(charset) ? open_charset(charset) : nullptr;
    if (decoder == nullptr) {
        throw PlatformError(
            error_number::kInvalidReply,
            "The reply is in a character set that is not known (" + presentable(charset) + ")");
    }
    const bool is_wide = has_wide_units(name);
    std::string result;
    result.reserve(bytes.size() + bytes.size() / 8);
    while (!decoder->decode(bytes, result)) {
        if (is_wide) {
            refuse_text();
        }
        append_code_point(result, kReplacement);
        bytes.remove_prefix(std::min<std::size_t>(1, bytes.size()));
    }
    return is_valid_utf8(result) ? result : to_valid_utf8(result);
}

}  // namespace zr::text
