// Text as the component means it: UTF-8 inside, counted in code points, compared on Unicode simple
// case mapping. Invalid UTF-8 never fails: a byte that starts no valid sequence is one character.
// values/text.h has what is done with such text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zr::text {

/// Number of code points.
std::size_t length(std::string_view value);

/// The first `count` code points of `value`, as they stand.
std::string_view first(std::string_view value, std::size_t count);

/// Unicode simple case mapping, code point by code point.
std::string upper(std::string_view value);
std::string lower(std::string_view value);

/// True when both are equal after upper-casing. Allocates nothing.
bool equal_ignoring_case(std::string_view left, std::string_view right);

/// A hash that agrees with equal_ignoring_case.
std::size_t hash_ignoring_case(std::string_view value);

/// True when the bytes are valid UTF-8.
bool is_valid_utf8(std::string_view value);

/// Where the first character stands that XML allows in no form: a control character other than tab
/// and line breaks, U+FFFE and U+FFFF, or a byte that starts no valid sequence; npos for none.
std::size_t find_not_xml(std::string_view value);

/// The text with every byte that starts no valid sequence replaced by U+FFFD: its length stays.
std::string to_valid_utf8(std::string_view value);

/// The code of a code point in the system's ANSI code page (Windows-1252); "?" (63) for one that
/// the page lacks.
unsigned char to_windows_1252(char32_t code_point);

/// Decodes the code point at `position`, which is inside `value`, and moves past it. U+FFFD for a
/// byte that starts no valid sequence.
char32_t next_code_point(std::string_view value, std::size_t& position);

/// Appends a code point as UTF-8; U+FFFD for a number that is none.
void append_code_point(std::string& target, char32_t code_point);

/// True for UTF-7 and HZ under any of their names: markup can look like other text in them.
bool hides_markup(std::string_view charset);

/// Bytes of the named charset as UTF-8, what is invalid in it as U+FFFD. Throws
/// PlatformError(kInvalidReply) for a charset that is not known, and for half of a surrogate pair
/// or any other unit that is no character where all units have several bytes. One that hides markup
/// counts as not known.
std::string decode(std::string_view bytes, const std::string& charset);

/// Orders keys without regard to letter case, for maps keyed by name.
struct HashIgnoringCase {
    using is_transparent = void;
    std::size_t operator()(std::string_view value) const { return hash_ignoring_case(value); }
};
struct EqualIgnoringCase {
    using is_transparent = void;
    bool operator()(std::string_view left, std::string_view right) const {
        return equal_ignoring_case(left, right);
    }
};

}  // namespace zr::text
