#include "platform/http_common.h"

#include <algorithm>
#include <array>

#include "platform/error.h"
#include "platform/unicode.h"

namespace zr {
namespace {

constexpr std::size_t kShownCharsetLength = 40;

bool is_control(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7f;
}

bool is_charset_character(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-_.:+()").find(c) != std::string_view::npos;
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

/// The name as a message may show it: short and without anything that is in no charset's name.
std::string presentable(std::string_view charset) {
    std::string name(charset.substr(0, kShownCharsetLength));
    std::replace_if(
        name.begin(), name.end(), [](char c) { return !is_charset_character(c); }, '?');
    return name;
}

std::string decode_charset(std::string_view bytes, std::string_view charset) {
    try {
        return text::decode(bytes, std::string(charset));
    } catch (const PlatformError& error) {
        if (error.number() != error_number::kInvalidReply) throw;
        throw PlatformError(
            error_number::kInvalidReply,
            "The reply is in a character set that is not known (" + presentable(charset) + ")");
    }
}

struct ByteOrderMark {
    std::string_view bytes;
    std::string_view charset;
};

constexpr std::array<ByteOrderMark, 3> kByteOrderMarks{{
    {"\xEF\xBB\xBF", "UTF-8"},
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
    for (const ByteOrderMark& mark : kByteOrderMarks) {
        if (!bytes.starts_with(mark.bytes)) continue;
        bytes.remove_prefix(mark.bytes.size());
        charset = mark.charset;
        break;
    }
    if (charset.empty() || text::equal_ignoring_case(charset, "utf-8"))
        return text::to_valid_utf8(bytes);
    return decode_charset(bytes, charset);
}

}  // namespace zr
