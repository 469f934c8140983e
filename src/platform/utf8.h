// Decoding of single UTF-8 sequences, for the text functions only; others use platform/unicode.h.
#pragma once

#include <cstddef>
#include <string_view>

namespace zr::utf8 {

inline constexpr char32_t kReplacement = 0xFFFD;

/// What stands at a position of a text: a code point and its length, or one byte of an invalid
/// sequence (`valid` false, `code` the byte moved to U+DC00.., where no valid sequence can lead, so
/// that different invalid bytes stay different).
struct Decoded {
    char32_t code;
    unsigned size;
    bool valid;
};

inline constexpr bool is_ascii(char value) { return static_cast<unsigned char>(value) < 0x80; }

/// Bytes of the valid sequence at `position`, which is inside `value`; 0 when there is none.
inline unsigned sequence_size(std::string_view value, std::size_t position) {
    const std::size_t left = value.size() - position;
    const auto byte = [&](std::size_t offset) {
        return static_cast<unsigned char>(value[position + offset]);
    };
    const auto continues = [&](std::size_t offset, unsigned low = 0x80, unsigned high = 0xBF) {
        return offset < left && byte(offset) >= low && byte(offset) <= high;
    };
    const unsigned lead = byte(0);
    if (lead < 0x80) {
        return 1;
    }
    if (lead < 0xE0) {
        return lead >= 0xC2 && continues(1) ? 2 : 0;
    }
    // The second byte's range keeps out overlong forms, surrogates and what is above U+10FFFF.
    if (lead < 0xF0) {
        const bool second = continues(1, lead == 0xE0 ? 0xA0 : 0x80, lead == 0xED ? 0x9F : 0xBF);
        return second && continues(2) ? 3 : 0;
    }
    if (lead > 0xF4) {
        return 0;
    }
    const bool second = continues(1, lead == 0xF0 ? 0x90 : 0x80, lead == 0xF4 ? 0x8F : 0xBF);
    return second && continues(2) && continues(3) ? 4 : 0;
}

/// Decodes what stands at `position`, which is inside `value`.
inline Decoded decode(std::string_view value, std::size_t position) {
    const unsigned size = sequence_size(value, position);
    const auto lead = static_cast<char32_t>(static_cast<unsigned char>(value[position]));
    if (size <= 1) {
        return {size == 1 ? lead : 0xDC00U | lead, 1, size == 1};
    }
    constexpr unsigned kLeadBits[] = {0, 0, 0x1F, 0x0F, 0x07};
    char32_t code = lead & kLeadBits[size];
    for (unsigned i = 1; i < size; ++i) {
        code = code << 6U | (static_cast<unsigned char>(value[position + i]) & 0x3FU);
    }
    return {code, size, true};
}

/// Where the run of ASCII that starts at `position` ends.
inline std::size_t skip_ascii(std::string_view value, std::size_t position) {
    constexpr std::size_t kBlock = 32;
    while (value.size() - position >= kBlock) {
        unsigned char all = 0;
        for (std::size_t i = 0; i < kBlock; ++i) {
            all = static_cast<unsigned char>(all | static_cast<unsigned char>(value[position + i]));
        }
        if (all >= 0x80) {
            break;
        }
        position += kBlock;
    }
    while (position < value.size() && is_ascii(value[position])) {
        ++position;
    }
    return position;
}

}  // namespace zr::utf8
