#include "zrcreditbureau/zr_xml_builder.h"

#include <cstdio>
#include <string>
#include <string_view>
#include <variant>

#include "values/convert.h"
#include "values/text.h"
#include "zrcreditbureau/error.h"

namespace zr {
namespace {

/// What of a text is written otherwise than it stands.
struct Encoding {
    bool markup = false;
    bool quotes = false;
    bool non_breaking_spaces = false;
    bool non_ascii = false;
    bool line_feeds = false;
};

/// What is written for the character at `position`, which moves behind it; "" for the character.
std::string reference(std::string_view value, std::size_t& position, const Encoding& encoding) {
    constexpr std::string_view kNonBreakingSpace = "\xC2\xA0";
    const char character = value[position];
    if (static_cast<unsigned char>(character) >= 128) {
        if (encoding.non_breaking_spaces && value.substr(position).starts_with(kNonBreakingSpace)) {
            position += kNonBreakingSpace.size();
            return "&#160;";
        }
        if (encoding.non_ascii) {
            const unsigned char code =
                text::to_windows_1252(text::next_code_point(value, position));
            return code < 128 ? std::string(1, static_cast<char>(code))
                              : "&#" + std::to_string(code) + ";";
        }
    }
    ++position;
    switch (character) {
        case '&':
            return encoding.markup ? "&amp;" : "";
        case '<':
            return encoding.markup ? "&lt;" : "";
        case '>':
            return encoding.markup ? "&gt;" : "";
        case '\'':
            return encoding.quotes ? "&apos;" : "";
        case '"':
            return encoding.quotes ? "&quot;" : "";
        case '\r':
            position += encoding.line_feeds && value.substr(position).starts_with('\n') ? 1 : 0;
            [[fallthrough]];
        case '\n':
            return encoding.line_feeds ? "&#10;" : "";
        default:
            return "";
    }
}

/// Appends the text without a copy of it in between: it may be a password, and builders wipe what
/// they hold.
void append_encoded(ZRStringBuilder& target, std::string_view value, const Encoding& encoding) {
    std::size_t plain = 0;  // from here to `position` the characters stand for themselves
    for (std::size_t position = 0; position < value.size();) {
        const std::size_t start = position;
        const std::string written = reference(value, position, encoding);
        if (!written.empty()) {
            target.Append(value.substr(plain, start - plain));
            target.Append(written);
            plain = position;
        }
    }
    target.Append(value.substr(plain));
}

std::string date_text(const DateTime& date) { return date.date_only().to_iso(); }

std::string date_time_text(const DateTime& date) {
    std::string text = date_text(date);
    const std::chrono::hh_mm_ss time(date.time_of_day);
    char clock[16];
    std::snprintf(clock, sizeof clock, "T%02d:%02d:%02d", static_cast<int>(time.hours().count()),
                  static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return text + clock;
}

std::string utc_text(const DateTime& date) { return date_time_text(date) + "Z"; }

}  // namespace

void ZRXMLBuilder::close_start_tag() {
    if (start_tag_open_) {
        buffer_.Append(">");
        start_tag_open_ = false;
    }
}

void ZRXMLBuilder::TagOpen(TextArg name) {
    buffer_.Append(start_tag_open_ ? "><" : "<");
    buffer_.Append(name);
    start_tag_open_ = true;
}

void ZRXMLBuilder::TagClose(TextArg name) {
    buffer_.Append(start_tag_open_ ? "></" : "</");
    buffer_.Append(name);
    buffer_.Append(">\r");
    start_tag_open_ = false;
}

void ZRXMLBuilder::WriteAttribute(TextArg name, TextArg value, FlagArg dont_write_if_blank) {
    if (!start_tag_open_) {
        throw PlatformError(error_number::kApplicationFirst,
                            "Attribute is not enclosed in an element tag.",
                            "ZRApp7.ZRXMLBuilder.WriteAttribute");
    }
    if (value.empty() && dont_write_if_blank) {
        return;
    }
    buffer_.Append(" ");
    buffer_.Append(name);
    buffer_.Append("=\"");
    append_encoded(buffer_, value, {.markup = true, .quotes = true});
    buffer_.Append("\"");
}

void ZRXMLBuilder::append_text(std::string_view value) {
    append_encoded(buffer_, value,
                   {.markup = true,
                    .non_breaking_spaces = true,
                    .non_ascii = has(EncodeFlags::zreXMLBuilderEncodeOptionsNonASCII),
                    .line_feeds = has(EncodeFlags::zreXMLBuilderEncodeOptionsLineFeeds)});
}

void ZRXMLBuilder::WriteText(TextArg text) {
    close_start_tag();
    append_text(text);
}

void ZRXMLBuilder::WriteRaw(TextArg text) {
    close_start_tag();
    buffer_.Append(text);
}

void ZRXMLBuilder::WriteBoolean(FlagArg value) { WriteRaw(value ? "true" : "false"); }

void ZRXMLBuilder::append_dated(const DateOrNull& value, DateForm form) {
    if (const auto date = convert::read_date(value)) {
        buffer_.Append(form(*date));
    } else if (const std::string* text = std::get_if<std::string>(&value)) {
        append_text(*text);
    }
}

void ZRXMLBuilder::WriteDate(const DateArg& value) {
    close_start_tag();
    append_dated(value, date_text);
}

void ZRXMLBuilder::WriteDateTime(const DateArg& value) {
    close_start_tag();
    append_dated(value, date_time_text);
}

void ZRXMLBuilder::append_tag(std::string_view start, std::string_view name) {
    buffer_.Append(start);
    buffer_.Append(name);
    buffer_.Append(">");
}

void ZRXMLBuilder::WriteTagWithText(TextArg name, TextArg value, FlagArg dont_write_if_blank) {
    close_start_tag();
    if (!value.empty() || !dont_write_if_blank) {
        append_tag("<", name);
        append_text(value);
        append_tag("</", name);
    }
}

void ZRXMLBuilder::WriteTagWithBoolean(TextArg name, FlagArg value) {
    WriteTagWithText(name, value ? "true" : "false");
}

void ZRXMLBuilder::write_dated_element(std::string_view name, const DateOrNull& value,
                                       bool dont_write_if_blank, DateForm form) {
    close_start_tag();
    if (!dont_write_if_blank || !is_null(value)) {  // only null counts as blank
        append_tag("<", name);
        append_dated(value, form);
        append_tag("</", name);
    }
}

void ZRXMLBuilder::WriteTagWithDate(TextArg name, const DateArg& value,
                                    FlagArg dont_write_if_blank) {
    write_dated_element(name, value, dont_write_if_blank, date_text);
}

void ZRXMLBuilder::WriteTagWithDateTime(TextArg name, const DateArg& value,
                                        FlagArg dont_write_if_blank) {
    write_dated_element(name, value, dont_write_if_blank, date_time_text);
}

void ZRXMLBuilder::WriteTagWithUtcDateTime(TextArg name, const DateArg& value,
                                           FlagArg dont_write_if_blank) {
    write_dated_element(name, value, dont_write_if_blank, utc_text);
}

std::string ZRXMLBuilder::XMLHeader() const {
    std::string header = "<?xml version=\"1.0\"";
    if (!encoding_.empty()) {
        header += " encoding=\"" + encoding_ + "\"";
    }
    return header + "?>";
}

std::string ZRXMLBuilder::XML(FlagArg include_header, EncodeFlags options) {
    close_start_tag();
    std::string text = include_header ? XMLHeader() : std::string();
    text += buffer_.view();
    if (options == EncodeFlags::zreXMLBuilderEncodeOptionsNone) {
        return text;
    }
    ZRStringBuilder encoded;
    append_encoded(encoded, text,
                   {.non_ascii = has(EncodeFlags::zreXMLBuilderEncodeOptionsNonASCII),
                    .line_feeds = has(EncodeFlags::zreXMLBuilderEncodeOptionsLineFeeds)});
    return encoded.ToString();
}

void ZRXMLBuilder::Clear() {
    buffer_.Clear();
    start_tag_open_ = false;
}

}  // namespace zr
