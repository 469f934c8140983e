#include "platform/http_common.h"

#include <algorithm>
#include <array>

#include "platform/unicode.h"
#include "zrcreditbureau/error.h"

namespace zr {
namespace {

bool is_control(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7f;
}

bool is_blank(char c) { return c == ' ' || c == '\t'; }

std::string_view trim_blanks(std::string_view value) {
    while (!value.empty() && is_blank(value.front())) value.remove_prefix(1);
    while (!value.empty() && is_blank(value.back())) value.remove_suffix(1);
    return value;
}

/// The value of the charset parameter, without quotes; empty when there is none.
std::string_view charset_of(std::string_view content_type) {
    std::size_t semicolon = content_type.find(';');
    while (semicolon != std::string_view::npos) {
        content_type.remove_prefix(semicolon + 1);
        semicolon = content_type.find(';');
        const std::string_view parameter = content_type.substr(0, semicolon);
        const std::size_t equals = parameter.find('=');
        if (equals == std::string_view::npos) continue;
        if (!text::equal_ignoring_case(trim_blanks(parameter.substr(0, equals)), "charset"))
            continue;
        std::string_view value = trim_blanks(parameter.substr(equals + 1));
        if (value.size() >= 2 && value.front() == '"' && value.back() == '"')
            value = trim_blanks(value.substr(1, value.size() - 2));
        return value;
    }
    return {};
}

struct ByteOrderMark {
    std::string_view bytes;
    std::string_view charset;
};

constexpr std::string_view kMarkInUtf8 = "\xEF\xBB\xBF";

// Those of four bytes first: no text begins with a mark and a null character.
constexpr std::array<ByteOrderMark, 5> kByteOrderMarks{{
    {kMarkInUtf8, "UTF-8"},
    {{"\xFF\xFE\0\0", 4}, "UTF-32LE"},
    {{"\0\0\xFE\xFF", 4}, "UTF-32BE"},
    {"\xFF\xFE", "UTF-16LE"},
    {"\xFE\xFF", "UTF-16BE"},
}};

}  // namespace

void check_no_control_characters(const HttpRequest& request) {
    struct Checked {
        std::string_view name;
        std::string_view value;
    };
    const std::array<Checked, 7> texts{{
        {"address", request.url},
        {"user", request.user},
        {"password", request.password},
        {"content type", request.content_type},
        {"proxy server", request.proxy.server},
        {"proxy user", request.proxy.user},
        {"proxy password", request.proxy.password},
    }};
    for (const Checked& checked : texts)
        if (std::any_of(checked.value.begin(), checked.value.end(), is_control))
            throw PlatformError(error_number::kInvalidAddress, "The " + std::string(checked.name) +
                                                                   " contains a control character");
}

std::string decode_reply(std::string_view bytes, std::string_view content_type) {
    std::string_view charset = charset_of(content_type);
    const auto mark = std::find_if(kByteOrderMarks.begin(), kByteOrderMarks.end(),
                                   [&](const auto& row) { return bytes.starts_with(row.bytes); });
    if (mark != kByteOrderMarks.end()) {
        bytes.remove_prefix(mark->bytes.size());
        charset = mark->charset;
    }
    std::string decoded = text::decode(bytes, std::string(charset.empty() ? "UTF-8" : charset));
    if (mark != kByteOrderMarks.end() && decoded.starts_with(kMarkInUtf8))
        throw PlatformError(error_number::kInvalidReply,
                            "The reply begins with two byte-order marks");
    return decoded;
}

}  // namespace zr
