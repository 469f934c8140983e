#include "zrcreditbureau/zr_xml_builder.h"

#include <cstdio>
#include <utility>

#include "values/convert.h"
#include "values/text.h"
#include "zrcreditbureau/error.h"

namespace zr {
namespace {

constexpr std::string_view kNonBreakingSpace = "\xC2\xA0";

void append_escaped(std::string& target, std::string_view value, bool attribute) {
    target.reserve(target.size() + value.size());
    for (const char character : value) {
        switch (character) {
            case '&':
                target += "&amp;";
                break;
            case '<':
                target += "&lt;";
                break;
            case '>':
                target += "&gt;";
                break;
            case '\'':
                target += attribute ? "&apos;" : "'";
                break;
            case '"':
                target += attribute ? "&quot;" : "\"";
                break;
            default:
                target += character;
        }
    }
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

std::string with_non_ascii_references(std::string_view value) {
    std::string result;
    result.reserve(value.size());
    for (std::size_t position = 0; position < value.size();) {
        const unsigned char code = text::to_windows_1252(text::next_code_point(value, position));
        if (code < 128) {
            result += static_cast<char>(code);
        } else {
            result += "&#" + std::to_string(code) + ";";
        }
    }
    return result;
}

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
    std::string attribute = " ";
    attribute += name;
    attribute += "=\"";
    append_escaped(attribute, value, true);
    attribute += '"';
    buffer_.Append(attribute);
}

std::string ZRXMLBuilder::encoded(std::string value) const {
    if (has(EncodeFlags::zreXMLBuilderEncodeOptionsNonASCII)) {
        value = with_non_ascii_references(value);
    }
    if (has(EncodeFlags::zreXMLBuilderEncodeOptionsLineFeeds)) {
        constexpr std::string_view kReference = "&#10;";
        value = text::replace_all(value, text::kCrLf, kReference);
        value = text::replace_all(value, "\r", kReference);
        value = text::replace_all(value, "\n", kReference);
    }
    return value;
}

std::string ZRXMLBuilder::escaped_text(std::string_view value) const {
    std::string escaped;
    append_escaped(escaped, value, false);
    if (escaped.find(kNonBreakingSpace) != std::string::npos) {
        escaped = text::replace_all(escaped, kNonBreakingSpace, "&#160;");
    }
    return encoded(std::move(escaped));
}

void ZRXMLBuilder::WriteText(TextArg text) {
    close_start_tag();
    buffer_.Append(escaped_text(text));
}

void ZRXMLBuilder::WriteRaw(TextArg text) {
    close_start_tag();
    buffer_.Append(text);
}

void ZRXMLBuilder::WriteBoolean(FlagArg value) { WriteRaw(value ? "true" : "false"); }

std::string ZRXMLBuilder::dated_text(const DateOrNull& value, DateForm form) const {
    if (const auto date = convert::read_date(value)) {
        return form(*date);
    }
    const std::string* text = std::get_if<std::string>(&value);
    return text != nullptr ? escaped_text(*text) : std::string();
}

void ZRXMLBuilder::WriteDate(const DateArg& value) { WriteRaw(dated_text(value, date_text)); }

void ZRXMLBuilder::WriteDateTime(const DateArg& value) {
    WriteRaw(dated_text(value, date_time_text));
}

void ZRXMLBuilder::write_element(std::string_view name, std::string_view text) {
    for (const std::string_view part : {std::string_view("<"), name, std::string_view(">"), text,
                                        std::string_view("</"), name, std::string_view(">")}) {
        buffer_.Append(part);
    }
}

void ZRXMLBuilder::WriteTagWithText(TextArg name, TextArg value, FlagArg dont_write_if_blank) {
    close_start_tag();
    if (!value.empty() || !dont_write_if_blank) {
        write_element(name, escaped_text(value));
    }
}

void ZRXMLBuilder::WriteTagWithBoolean(TextArg name, FlagArg value) {
    close_start_tag();
    write_element(name, value ? "true" : "false");
}

void ZRXMLBuilder::write_dated_element(std::string_view name, const DateOrNull& value,
                                       bool dont_write_if_blank, DateForm form) {
    close_start_tag();
    if (!dont_write_if_blank || !is_null(value)) {  // only null counts as blank
        write_element(name, dated_text(value, form));
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
    return options == EncodeFlags::zreXMLBuilderEncodeOptionsNone ? text : encoded(std::move(text));
}

void ZRXMLBuilder::Clear() {
    buffer_.Clear();
    start_tag_open_ = false;
}

}  // namespace zr
