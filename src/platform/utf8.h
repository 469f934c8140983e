// Decoding of single UTF-8 sequences, for the text functions only; others use platform/text.h.
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

/// Decodes what stands at `position`, which is inside `value`.
inline Decoded decode(std::string_view value, std::size_t position) {
    const auto byte = [&](std::size_t offset) {
        return static_cast<char32_t>(static_cast<unsigned char>(value[position + offset]));
    };
    const std::size_t left = value.size() - position;
    const auto continues = [&](std::size_t offset) {
        return offset < left && (byte(offset) & 0xC0U) == 0x80U;
    };
    const char32_t lead = byte(0);
    if (lead < 0x80) {
        return {lead, 1, true};
    }
    if (lead >= 0xC2 && lead <= 0xDF && continues(1)) {
        return {(lead & 0x1FU) << 6U | (byte(1) & 0x3FU), 2, true};
    }
    if ((lead & 0xF0U) == 0xE0U && continues(1) && continues(2)) {
        const char32_t code = (lead & 0x0FU) << 12U | (byte(1) & 0x3FU) << 6U | (byte(2) & 0x3FU);
        if (code >= 0x800 && (code < 0xD800 || code > 0xDFFF)) {
            return {code, 3, true};
        }
    }
    if (lead >= 0xF0 && lead <= 0xF4 && continues(1) && continues(2) && continues(3)) {
        const char32_t code = (lead & 0x07U) << 18U | (byte(1) & 0x3FU) << 12U |
                              (byte(2) & 0x3FU) << 6U | (byte(3) & 0x3FU);
        if (code >= 0x10000 && code <= 0x10FFFF) {
            return {code, 4, true};
        }
    }
    return {0xDC00U | lead, 1, false};
}

/// Length of the run of ASCII that starts at `position`; exact only up to a block's start, so what
/// follows may be ASCII too.
inline std::size_t ascii_run(std::string_view value, std::size_t position) {
    constexpr std::size_t kBlock = 32;
    const std::size_t start = position;
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
    return position - start;
}

}  // namespace zr::utf8
