// JSON as the component reads and writes it: numbers keep their digits, so that money stays exact.
#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "zrcreditbureau/property.h"

namespace zr::automation {

/// A text is not JSON, or JSON is not of the form that is asked for. The reason is one sentence for
/// people; it names members and never shows their values.
class JsonError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A JSON value. Members keep their order.
class JsonValue {
  public:
    enum class Kind : std::uint8_t { kNull, kBoolean, kNumber, kText, kArray, kObject };
    using Member = std::pair<std::string, JsonValue>;

    JsonValue() = default;
    static JsonValue boolean(bool value);
    /// A number by its digits.
    static JsonValue number(std::string digits);
    static JsonValue text(std::string value);
    static JsonValue array();
    static JsonValue object();

    Kind kind() const { return kind_; }
    bool is_object() const { return kind_ == Kind::kObject; }
    bool is_null() const { return kind_ == Kind::kNull; }

    bool boolean() const { return boolean_; }
    /// The text, or a number's digits as they stand.
    const std::string& text() const { return text_; }
    std::string& text() { return text_; }
    const std::vector<JsonValue>& items() const { return items_; }
    std::vector<JsonValue>& items() { return items_; }
    const std::vector<Member>& members() const { return members_; }
    std::vector<Member>& members() { return members_; }

    /// The last member with this name, else the last with it in another letter case; null when
    /// there is none.
    const JsonValue* find(std::string_view name) const;

  private:
    Kind kind_ = Kind::kNull;
    bool boolean_ = false;
    std::string text_;
    std::vector<JsonValue> items_;
    std::vector<Member> members_;
};

/// Nesting deeper than this is refused.
inline constexpr int kDeepestJson = 64;

/// Reads one JSON text. Throws JsonError for anything else, for text that is not valid UTF-8, and
/// for nesting past kDeepestJson.
JsonValue parse_json(std::string_view text);

/// Writes one JSON text after another, each without line breaks, in document order.
class JsonWriter {
  public:
    /// Takes the text written so far, valid UTF-8, wherever an object ends behind a large one: the
    /// rest of the document then begins an empty buffer. A long report is never held whole.
    using Sink = std::function<void(std::string_view text)>;

    explicit JsonWriter(Sink sink = {});
    ~JsonWriter();
    JsonWriter(const JsonWriter&) = delete;
    JsonWriter& operator=(const JsonWriter&) = delete;

    void begin_object();
    void end_object();
    void begin_array();
    void end_array();
    /// The name of the member that follows: a property's name, which needs no escaping.
    void name(std::string_view name);

    void null();
    void boolean(bool value);
    void number(std::int64_t value);
    void text(std::string_view value);
    /// Money as a number with four decimals, a date as text in the ISO form, and so on.
    void value(const Value& value);

    /// A member and its value.
    void boolean(std::string_view its_name, bool value) { name(its_name), boolean(value); }
    void number(std::string_view its_name, std::integral auto value) {
        name(its_name), number(static_cast<std::int64_t>(value));
    }
    void text(std::string_view its_name, std::string_view value) { name(its_name), text(value); }

    /// The text written, anything in it that is not valid UTF-8 as U+FFFD, until the next change.
    std::string_view view();
    /// Forgets the text and keeps the room that it took.
    void clear();

  private:
    struct Output;
    std::unique_ptr<Output> output_;
};

}  // namespace zr::automation
