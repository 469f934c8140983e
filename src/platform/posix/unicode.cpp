// Letter case by utf8proc and charsets by iconv: the two libraries are named here only.
#include "platform/unicode.h"

#include <iconv.h>
#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <initializer_list>

#include "platform/error.h"
#include "platform/utf8.h"

namespace zr::text {
namespace {

constexpr char upper_ascii(char value) {
    return value >= 'a' && value <= 'z' ? static_cast<char>(value - 'a' + 'A') : value;
}

constexpr char lower_ascii(char value) {
    return value >= 'A' && value <= 'Z' ? static_cast<char>(value - 'A' + 'a') : value;
}

// Simple mapping leaves the sharp s as it is; the library knows a capital one.
char32_t upper_code(char32_t code) {
    constexpr char32_t kSharpS = 0xDF;
    return code == kSharpS ? code : static_cast<char32_t>(utf8proc_toupper(static_cast<int>(code)));
}

char32_t lower_code(char32_t code) {
    return static_cast<char32_t>(utf8proc_tolower(static_cast<int>(code)));
}

template <typename MapAscii, typename MapCode>
std::string map_case(std::string_view value, MapAscii map_ascii, MapCode map_code) {
    std::string result;
    result.reserve(value.size());
    for (std::size_t position = 0; position < value.size();) {
        if (utf8::is_ascii(value[position])) {
            result += map_ascii(value[position++]);
            continue;
        }
        const utf8::Decoded decoded = utf8::decode(value, position);
        if (decoded.valid) {
            append_code_point(result, map_code(decoded.code));
        } else {
            result += value[position];
        }
        position += decoded.size;
    }
    return result;
}

// The upper-cased code point at `position`, which moves past it. Invalid bytes map to themselves.
char32_t next_upper(std::string_view value, std::size_t& position) {
    if (utf8::is_ascii(value[position])) {
        return static_cast<char32_t>(upper_ascii(value[position++]));
    }
    const utf8::Decoded decoded = utf8::decode(value, position);
    position += decoded.size;
    return decoded.valid ? upper_code(decoded.code) : decoded.code;
}

bool contains_any(std::string_view name, std::initializer_list<std::string_view> parts) {
    return std::any_of(parts.begin(), parts.end(), [&](std::string_view part) {
        return name.find(part) != std::string_view::npos;
    });
}

/// Owns an iconv descriptor that converts `charset` to UTF-8.
class Converter {
  public:
    explicit Converter(const std::string& charset)
        : handle_(is_safe_name(charset) ? iconv_open("UTF-8", charset.c_str()) : invalid()) {
        if (handle_ == invalid()) {
            throw PlatformError(
                error_number::kInvalidReply,
                "The reply is in a character set that is not known (" + presentable(charset) + ")");
        }
    }
    ~Converter() { iconv_close(handle_); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    /// Converts as much of `input` as it can and appends it to `target`. True when all is done;
    /// else `input` begins with what is invalid or incomplete.
    bool convert(std::string_view& input, std::string& target) {
        char* from = const_cast<char*>(input.data());  // iconv does not write to it
        std::size_t left = input.size();
        while (true) {
            const bool flushing = left == 0;
            char* to = buffer_.data();
            std::size_t room = buffer_.size();
            const std::size_t result =
                iconv(handle_, flushing ? nullptr : &from, flushing ? nullptr : &left, &to, &room);
            const bool failed = result == kFailed && errno != E2BIG;
            const bool full = result == kFailed && !failed;
            target.append(buffer_.data(), buffer_.size() - room);
            if (failed || (flushing && !full)) {
                input = left != 0 ? std::string_view(from, left) : std::string_view();
                return !failed;
            }
        }
    }

  private:
    static constexpr auto kFailed = static_cast<std::size_t>(-1);

    static iconv_t invalid() { return reinterpret_cast<iconv_t>(-1); }  // NOLINT

    static constexpr std::size_t kLongestName = 40;

    static bool is_plain(char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x80 &&
               (std::isalnum(byte) != 0 || std::string_view("-_.:+").find(c) != std::string::npos);
    }

    // The name comes from a server: neither a path nor a conversion option may hide in it.
    static bool is_safe_name(const std::string& name) {
        return !name.empty() && name.size() <= kLongestName &&
               std::all_of(name.begin(), name.end(), is_plain) && !hides_markup(name);
    }

    // As a message may show it: short and without anything that is in no charset's name.
    static std::string presentable(const std::string& name) {
        std::string shown = name.substr(0, kLongestName);
        std::replace_if(
            shown.begin(), shown.end(), [](char c) { return !is_plain(c); }, '?');
        return shown;
    }

    iconv_t handle_;
    std::array<char, 4096> buffer_;
};

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

std::string upper(std::string_view value) { return map_case(value, upper_ascii, upper_code); }

std::string lower(std::string_view value) { return map_case(value, lower_ascii, lower_code); }

bool equal_ignoring_case(std::string_view left, std::string_view right) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < left.size() && j < right.size()) {
        if (utf8::is_ascii(left[i]) && utf8::is_ascii(right[j])) {
            if (upper_ascii(left[i++]) != upper_ascii(right[j++])) {
                return false;
            }
        } else if (next_upper(left, i) != next_upper(right, j)) {
            return false;
        }
    }
    return i == left.size() && j == right.size();
}

std::size_t hash_ignoring_case(std::string_view value) {
    std::uint64_t hash = 0xCBF29CE484222325U;  // FNV-1a, a code point at a time
    for (std::size_t position = 0; position < value.size();) {
        hash = (hash ^ next_upper(value, position)) * 0x100000001B3U;
    }
    return static_cast<std::size_t>(hash ^ hash >> 32U);
}

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
    Converter converter(charset);
    const bool is_wide = has_wide_units(name);
    std::string result;
    result.reserve(bytes.size() + bytes.size() / 8);
    while (!converter.convert(bytes, result)) {
        if (is_wide) {
            refuse_text();
        }
        append_code_point(result, utf8::kReplacement);
        bytes.remove_prefix(std::min<std::size_t>(1, bytes.size()));
    }
    return is_valid_utf8(result) ? result : to_valid_utf8(result);
}

}  // namespace zr::text
