// Reads and writes JSON with RapidJSON, which no other file includes.
#include "automation/json.h"

#include <algorithm>
#include <cstdlib>
#include <new>

#include "values/text.h"

// Without its vector instructions: in this version they pass control characters from 0x1A on.
#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace zr::automation {
namespace {

/// RapidJSON's own allocators give it null pointers, which it does not look at.
struct ThrowingAllocator {
    static constexpr bool kNeedFree = true;

    static void* Malloc(std::size_t size) { return Realloc(nullptr, 0, size); }
    static void* Realloc(void* block, std::size_t /*old_size*/, std::size_t size) {
        if (size == 0) {
            Free(block);
            return nullptr;
        }
        void* const moved = std::realloc(block, size);
        if (moved == nullptr) {
            throw std::bad_alloc();
        }
        return moved;
    }
    static void Free(void* block) { std::free(block); }
};

using Encoding = rapidjson::UTF8<>;
using Reader = rapidjson::GenericReader<Encoding, Encoding, ThrowingAllocator>;
using Buffer = rapidjson::GenericStringBuffer<Encoding, ThrowingAllocator>;
using Writer = rapidjson::Writer<Buffer, Encoding, Encoding, ThrowingAllocator>;

/// Builds values from the reader's events. A handler that answers false ends the reading; `reason`
/// then says why.
class Builder {
  public:
    std::string reason;

    JsonValue take() { return std::move(root_); }

    bool Null() { return add(JsonValue()); }
    bool Bool(bool value) { return add(JsonValue::boolean(value)); }
    bool RawNumber(const char* digits, rapidjson::SizeType length, bool /*copy*/) {
        return add(JsonValue::number({digits, length}));
    }
    bool String(const char* text, rapidjson::SizeType length, bool /*copy*/) {
        return checked(text, length) && add(JsonValue::text({text, length}));
    }
    bool Key(const char* text, rapidjson::SizeType length, bool /*copy*/) {
        key_.assign(text, length);
        return checked(text, length);
    }
    bool StartObject() { return open(JsonValue::object()); }
    bool EndObject(rapidjson::SizeType /*members*/) { return close(); }
    bool StartArray() { return open(JsonValue::array()); }
    bool EndArray(rapidjson::SizeType /*items*/) { return close(); }

    // The reader gives numbers as texts, never as these.
    bool Int(int) { return false; }
    bool Uint(unsigned) { return false; }
    bool Int64(std::int64_t) { return false; }
    bool Uint64(std::uint64_t) { return false; }
    bool Double(double) { return false; }

  private:
    bool checked(const char* text, std::size_t length) {
        if (!text::is_valid_utf8({text, length})) {
            reason = "it holds text that is not valid UTF-8";
            return false;
        }
        return true;
    }

    JsonValue& place(JsonValue value) {
        if (open_.empty()) {
            return root_ = std::move(value);
        }
        JsonValue& parent = *open_.back();
        if (parent.is_object()) {
            return parent.members().emplace_back(std::move(key_), std::move(value)).second;
        }
        return parent.items().emplace_back(std::move(value));
    }

    bool add(JsonValue value) {
        place(std::move(value));
        return true;
    }

    bool open(JsonValue value) {
        if (open_.size() == kDeepestJson) {
            reason = "it is nested more than " + std::to_string(kDeepestJson) + " deep";
            return false;
        }
        // The address holds until the container is closed: its parent grows no further before.
        open_.push_back(&place(std::move(value)));
        return true;
    }

    bool close() {
        open_.pop_back();
        return true;
    }

    JsonValue root_;
    std::vector<JsonValue*> open_;
    std::string key_;
};

/// Where people find the byte behind `before`: its line and column, or its number in a single line.
std::string place(std::string_view before) {
    const auto line = std::count(before.begin(), before.end(), '\n');
    if (line == 0) {
        return "byte " + std::to_string(before.size() + 1);
    }
    return "line " + std::to_string(line + 1) + ", column " +
           std::to_string(before.size() - before.rfind('\n'));
}

std::string message(const rapidjson::ParseResult& result, const std::string& reason,
                    std::string_view text) {
    if (result.Code() == rapidjson::kParseErrorTermination) {
        return "The JSON text cannot be used: " + reason + ".";
    }
    return "Not valid JSON at " + place(text.substr(0, result.Offset())) + ": " +
           rapidjson::GetParseError_En(result.Code());
}

}  // namespace

JsonValue JsonValue::boolean(bool value) {
    JsonValue made;
    made.kind_ = Kind::kBoolean;
    made.boolean_ = value;
    return made;
}

JsonValue JsonValue::number(std::string digits) {
    JsonValue made = text(std::move(digits));
    made.kind_ = Kind::kNumber;
    return made;
}

JsonValue JsonValue::text(std::string value) {
    JsonValue made;
    made.kind_ = Kind::kText;
    made.text_ = std::move(value);
    return made;
}

JsonValue JsonValue::array() {
    JsonValue made;
    made.kind_ = Kind::kArray;
    return made;
}

JsonValue JsonValue::object() {
    JsonValue made;
    made.kind_ = Kind::kObject;
    return made;
}

const JsonValue* JsonValue::find(std::string_view name) const {
    const JsonValue* found = nullptr;
    for (auto member = members_.rbegin(); member != members_.rend(); ++member) {
        if (member->first == name) {
            return &member->second;
        }
        if (found == nullptr && text::equal_ignoring_case(member->first, name)) {
            found = &member->second;
        }
    }
    return found;
}

JsonValue parse_json(std::string_view text) {
    constexpr unsigned kFlags = rapidjson::kParseNumbersAsStringsFlag |
                                rapidjson::kParseIterativeFlag | rapidjson::kParseInsituFlag;
    // The reader takes a zero byte for the end of the text.
    const std::size_t zero = text.find('\0');
    if (zero != std::string_view::npos) {
        throw JsonError("Not valid JSON at " + place(text.substr(0, zero)) +
                        ": a zero byte stands in it.");
    }
    std::string copy(text);
    rapidjson::InsituStringStream stream(copy.data());
    Reader reader;
    Builder builder;
    const rapidjson::ParseResult result = reader.Parse<kFlags>(stream, builder);
    if (result.IsError()) {
        throw JsonError(message(result, builder.reason, text));
    }
    return builder.take();
}

struct JsonWriter::Output {
    Buffer buffer;
    Writer writer{buffer};
    std::string repaired;
    Sink sink;
};

JsonWriter::JsonWriter(Sink sink) : output_(std::make_unique<Output>()) {
    output_->sink = std::move(sink);
}
JsonWriter::~JsonWriter() = default;

void JsonWriter::begin_object() { output_->writer.StartObject(); }
void JsonWriter::end_object() {
    constexpr std::size_t kLarge = std::size_t{1} << 20;
    output_->writer.EndObject();
    if (output_->sink && output_->buffer.GetSize() > kLarge) {
        output_->sink(view());
        output_->buffer.Clear();  // the writer goes on where it is in the document
    }
}
void JsonWriter::begin_array() { output_->writer.StartArray(); }
void JsonWriter::end_array() { output_->writer.EndArray(); }

namespace {

rapidjson::SizeType size_of(std::string_view text) {
    return static_cast<rapidjson::SizeType>(text.size());
}

/// RapidJSON takes no null pointer for an empty text.
const char* data_of(std::string_view text) { return text.empty() ? "" : text.data(); }

}  // namespace

void JsonWriter::name(std::string_view name) {
    // A report has thousands of names, all of them plain: an empty raw value makes the writer set
    // its comma, and the name is copied behind it in one go.
    output_->writer.RawValue("", 0, rapidjson::kStringType);
    char* target = output_->buffer.Push(name.size() + 2);
    *target++ = '"';
    target = std::copy(name.begin(), name.end(), target);
    *target = '"';
}

void JsonWriter::null() { output_->writer.Null(); }

void JsonWriter::boolean(bool value) { output_->writer.Bool(value); }

void JsonWriter::number(std::int64_t value) { output_->writer.Int64(value); }

void JsonWriter::text(std::string_view value) {
    output_->writer.String(data_of(value), size_of(value));
}

void JsonWriter::value(const Value& value) {
    if (holds_text(value)) {
        text(text_of(value));
    } else if (const bool* flag = std::get_if<bool>(&value)) {
        boolean(*flag);
    } else if (const std::int32_t* integer = std::get_if<std::int32_t>(&value)) {
        number(*integer);
    } else if (const Currency* amount = std::get_if<Currency>(&value)) {
        const std::string digits = amount->to_fixed4();
        output_->writer.RawValue(digits.data(), digits.size(), rapidjson::kNumberType);
    } else if (const DateTime* date = std::get_if<DateTime>(&value)) {
        text(date->to_iso());
    } else {
        null();
    }
}

std::string_view JsonWriter::view() {
    const std::string_view written(output_->buffer.GetString(), output_->buffer.GetSize());
    if (text::is_valid_utf8(written)) {
        return written;
    }
    return output_->repaired = text::to_valid_utf8(written);
}

void JsonWriter::clear() {
    output_->buffer.Clear();
    output_->writer.Reset(output_->buffer);
}

}  // namespace zr::automation
