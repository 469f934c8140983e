#include "platform/unicode.h"

#include <algorithm>
#include <array>

#include "platform/utf8.h"

namespace zr::text {
namespace {

// Code points of the codes 0x80 to 0x9F of Windows-1252; the five codes without a character stand
// for the control characters of the same number.
constexpr std::array<char32_t, 32> kWindows1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// Position of the first byte that starts no valid sequence; the size when there is none.
std::size_t find_invalid(std::string_view value, std::size_t position) {
    while ((position = utf8::skip_ascii(value, position)) < value.size()) {
        do {
            const unsigned size = utf8::sequence_size(value, position);
            if (size == 0) {
                return position;
            }
            position += size;
        } while (position < value.size() && !utf8::is_ascii(value[position]));
    }
    return value.size();
}

}  // namespace

std::size_t length(std::string_view value) {
    std::size_t count = 0;
    for (std::size_t position = 0; position < value.size(); ++count) {
        position += std::max(utf8::sequence_size(value, position), 1U);
    }
    return count;
}

std::string_view first(std::string_view value, std::size_t count) {
    if (count >= value.size()) {
        return value;
    }
    std::size_t position = 0;
    for (; count != 0 && position < value.size(); --count) {
        position += std::max(utf8::sequence_size(value, position), 1U);
    }
    return value.substr(0, position);
}

bool is_valid_utf8(std::string_view value) { return find_invalid(value, 0) == value.size(); }

std::size_t find_not_xml(std::string_view value) {
    constexpr char32_t kFirstPrintable = 0x20;
    for (std::size_t position = 0; position < value.size();) {
        const utf8::Decoded at = utf8::decode(value, position);
        const bool allowed = at.code >= kFirstPrintable
                                 ? at.valid && at.code != 0xFFFE && at.code != 0xFFFF
                                 : at.code == '\t' || at.code == '\n' || at.code == '\r';
        if (!allowed) {
            return position;
        }
        position += at.size;
    }
    return std::string_view::npos;
}

std::string to_valid_utf8(std::string_view value) {
    std::string result;
    result.reserve(value.size());
    for (std::size_t position = 0; position < value.size();) {
        const std::size_t invalid = find_invalid(value, position);
        result.append(value, position, invalid - position);
        if (invalid == value.size()) {
            break;
        }
        append_code_point(result, utf8::kReplacement);
        position = invalid + 1;
    }
    return result;
}

unsigned char to_windows_1252(char32_t code_point) {
    if (code_point < 0x80 || (code_point >= 0xA0 && code_point <= 0xFF)) {
        return static_cast<unsigned char>(code_point);
    }
    const auto found = std::find(kWindows1252High.begin(), kWindows1252High.end(), code_point);
    return found == kWindows1252High.end()
               ? static_cast<unsigned char>('?')
               : static_cast<unsigned char>(0x80 + (found - kWindows1252High.begin()));
}

char32_t next_code_point(std::string_view value, std::size_t& position) {
    const utf8::Decoded decoded = utf8::decode(value, position);
    position += decoded.size;
    return decoded.valid ? decoded.code : utf8::kReplacement;
}

void append_code_point(std::string& target, char32_t code_point) {
    if (code_point > 0x10FFFF || (code_point >= 0xD800 && code_point <= 0xDFFF)) {
        code_point = utf8::kReplacement;
    }
    const auto byte = [](char32_t bits) {
        return static_cast<char>(static_cast<unsigned char>(bits));
    };
    const auto continuation = [&](unsigned shift) {
        return byte(0x80U | ((code_point >> shift) & 0x3FU));
    };
    if (code_point < 0x80) {
        target += byte(code_point);
    } else if (code_point < 0x800) {
        const char bytes[] = {byte(0xC0U | code_point >> 6U), continuation(0)};
        target.append(bytes, sizeof bytes);
    } else if (code_point < 0x10000) {
        const char bytes[] = {byte(0xE0U | code_point >> 12U), continuation(6), continuation(0)};
        target.append(bytes, sizeof bytes);
    } else {
        const char bytes[] = {byte(0xF0U | code_point >> 18U), continuation(12), continuation(6),
                              continuation(0)};
        target.append(bytes, sizeof bytes);
    }
}

}  // namespace zr::text
