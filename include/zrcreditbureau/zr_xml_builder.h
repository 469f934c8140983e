// Writes XML text forwards, element by element.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zrcreditbureau/argument.h"
#include "zrcreditbureau/zr_string_builder.h"

namespace zr {

/// Flags of the encoding step, combinable.
enum class zreXMLBuilderEncodeOptions : std::int32_t {
    zreXMLBuilderEncodeOptionsNone = 0,
    /// Characters beyond ASCII, by their ANSI code, become decimal character references.
    zreXMLBuilderEncodeOptionsNonASCII = 1,
    /// Line breaks are written as "&#10;".
    zreXMLBuilderEncodeOptionsLineFeeds = 2,
};

constexpr zreXMLBuilderEncodeOptions operator|(zreXMLBuilderEncodeOptions left,
                                               zreXMLBuilderEncodeOptions right) {
    return static_cast<zreXMLBuilderEncodeOptions>(static_cast<std::int32_t>(left) |
                                                   static_cast<std::int32_t>(right));
}

/// Writes elements, attributes and typed values with the component's escaping rules. Keeps no tree:
/// the caller opens and closes elements in a well-formed order. Empty elements are written as a
/// start and an end tag, and a carriage return follows every tag that TagClose writes.
class ZRXMLBuilder {
  public:
    using EncodeFlags = zreXMLBuilderEncodeOptions;

    ZRXMLBuilder() { buffer_.Initialise(16384); }

    void TagOpen(TextArg name);
    void TagClose(TextArg name);

    /// Writes an attribute of the element just opened. Raises PlatformError(-2147221504) when no
    /// start tag is open; writes nothing for an empty value that is not to be written. Non-ASCII
    /// characters stand as they are.
    void WriteAttribute(TextArg name, TextArg value, FlagArg dont_write_if_blank = false);

    /// Escaped text; quotation marks stand as they are.
    void WriteText(TextArg text);
    /// Text as it stands.
    void WriteRaw(TextArg text);
    /// "true" or "false".
    void WriteBoolean(FlagArg value);
    /// "yyyy-mm-dd", or "yyyy-mm-ddThh:nn:ss"; nothing for null. A text is written as the date that
    /// it reads as, else as the text that it is.
    void WriteDate(const DateArg& value);
    void WriteDateTime(const DateArg& value);

    // An element with its value, all in one; an empty text or a null date is left out when it is
    // not to be written, and an empty element otherwise. A text in place of a date, even an empty
    // one, is no blank: its element is written in any case.
    void WriteTagWithText(TextArg name, TextArg value, FlagArg dont_write_if_blank = false);
    void WriteTagWithBoolean(TextArg name, FlagArg value);
    void WriteTagWithDate(TextArg name, const DateArg& value, FlagArg dont_write_if_blank = false);
    void WriteTagWithDateTime(TextArg name, const DateArg& value,
                              FlagArg dont_write_if_blank = false);
    /// As WriteTagWithDateTime with "Z" behind the time; the caller passes a time in UTC.
    void WriteTagWithUtcDateTime(TextArg name, const DateArg& value,
                                 FlagArg dont_write_if_blank = false);

    /// The text written so far, after the declaration when `include_header`. With `options` other
    /// than 0 the whole goes once more through the encoding step, under the EncodeOptions property.
    std::string XML(FlagArg include_header = false,
                    EncodeFlags options = EncodeFlags::zreXMLBuilderEncodeOptionsNone);

    /// The XML declaration, which names the encoding when one is set.
    std::string XMLHeader() const;

    const std::string& Encoding() const { return encoding_; }
    void Encoding(TextArg encoding) { encoding_ = encoding; }

    EncodeFlags EncodeOptions() const { return options_; }
    void EncodeOptions(EncodeFlags options) { options_ = options; }

    /// Empties the text; Encoding and EncodeOptions stay.
    void Clear();

  private:
    void close_start_tag();
    void append_text(std::string_view value);
    void append_tag(std::string_view start, std::string_view name);
    using DateForm = std::string (*)(const DateTime&);
    void write_dated_element(std::string_view name, const DateOrNull& value,
                             bool dont_write_if_blank, DateForm form);
    void append_dated(const DateOrNull& value, DateForm form);
    bool has(EncodeFlags flag) const {
        return (static_cast<std::int32_t>(options_) & static_cast<std::int32_t>(flag)) != 0;
    }

    std::string encoding_;
    EncodeFlags options_ = EncodeFlags::zreXMLBuilderEncodeOptionsNone;
    ZRStringBuilder buffer_;
    bool start_tag_open_ = false;
};

}  // namespace zr
