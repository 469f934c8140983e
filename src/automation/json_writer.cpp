#include <algorithm>
#include <charconv>
#include <cstring>

#include "automation/json.h"
#include "platform/text.h"

namespace zr::automation {
namespace {

/// The longest escape: \u001F.
constexpr std::size_t kLongestEscape = 6;

bool needs_escape(char character) {
    return static_cast<unsigned char>(character) < 0x20 || character == '"' || character == '\\';
}

/// Whether one of eight characters needs an escape.
bool any_needs_escape(const char* characters) {
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    std::uint64_t block = 0;
    std::memcpy(&block, characters, sizeof block);
    const auto has_zero = [](std::uint64_t bytes) { return (bytes - kOnes) & ~bytes; };
    const std::uint64_t control = (block - kOnes * 0x20) & ~block;
    return ((control | has_zero(block ^ (kOnes * '"')) | has_zero(block ^ (kOnes * '\\'))) &
            kHighBits) != 0;
}

/// The first character at or behind `at` that needs an escape; the size when there is none.
std::size_t find_escape(std::string_view text, std::size_t at) {
    const std::size_t size = text.size();
    while (at + 8 <= size && !any_needs_escape(text.data() + at)) {
        at += 8;
    }
    // What is left of a longer text is looked at together with what stands before it.
    if (size - at < 8 && size >= 8 && !any_needs_escape(text.data() + size - 8)) {
        return size;
    }
    while (at < size && !needs_escape(text[at])) {
        ++at;
    }
    return at;
}

char* append(char* target, std::string_view text) {
    return std::copy(text.begin(), text.end(), target);
}

char* append_escape(char* target, char character) {
    constexpr char kLetters[] = "btn?fr";  // of the controls from backspace on
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const auto code = static_cast<unsigned char>(character);
    *target++ = '\\';
    if (code >= 0x20) {
        *target++ = character;
    } else if (code >= '\b' && code <= '\r' && code != '\v') {
        *target++ = kLetters[code - '\b'];
    } else {
        target = append(target, "u00");
        *target++ = kDigits[code >> 4];
        *target++ = kDigits[code & 0xF];
    }
    return target;
}

}  // namespace

char* JsonWriter::room(std::size_t bytes) {
    if (capacity_ - size_ < bytes) {
        capacity_ = std::max(capacity_ * 2, size_ + bytes + 4096);
        auto larger = std::make_unique_for_overwrite<char[]>(capacity_);
        std::copy_n(buffer_.get(), size_, larger.get());
        buffer_ = std::move(larger);
    }
    return buffer_.get() + size_;
}

char* JsonWriter::value_room(std::size_t bytes) {
    char* const target = room(bytes + 1);
    // Only what was opened, or named, takes a value without a comma.
    const char last = size_ == 0 ? '[' : target[-1];
    if (last == '{' || last == '[' || last == ':') {
        return target;
    }
    *target = ',';
    return target + 1;
}

void JsonWriter::put(char character) {
    *room(1) = character;
    ++size_;
}

void JsonWriter::plain(std::string_view value) {
    size_ = static_cast<std::size_t>(append(value_room(value.size()), value) - buffer_.get());
}

void JsonWriter::open(char bracket) { plain({&bracket, 1}); }

void JsonWriter::name(std::string_view name) {
    char* target = value_room(name.size() + 3);
    *target++ = '"';
    target = append(target, name);
    *target++ = '"';
    *target++ = ':';
    size_ = static_cast<std::size_t>(target - buffer_.get());
}

void JsonWriter::number(std::int64_t value) {
    char digits[24];
    const char* const end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
    plain({digits, static_cast<std::size_t>(end - digits)});
}

void JsonWriter::text(std::string_view value) {
    std::size_t escape = find_escape(value, 0);
    const std::size_t most = escape == value.size() ? escape : value.size() * kLongestEscape;
    char* target = value_room(most + 2);
    *target++ = '"';
    std::size_t at = 0;
    for (; escape < value.size(); escape = find_escape(value, at)) {
        target = append(target, value.substr(at, escape - at));
        target = append_escape(target, value[escape]);
        at = escape + 1;
    }
    target = append(target, value.substr(at));
    *target++ = '"';
    size_ = static_cast<std::size_t>(target - buffer_.get());
}

void JsonWriter::value(const Value& value) {
    if (holds_text(value)) {
        text(text_of(value));
    } else if (const bool* flag = std::get_if<bool>(&value)) {
        boolean(*flag);
    } else if (const std::int32_t* integer = std::get_if<std::int32_t>(&value)) {
        number(*integer);
    } else if (const Currency* amount = std::get_if<Currency>(&value)) {
        plain(amount->to_fixed4());
    } else if (const DateTime* date = std::get_if<DateTime>(&value)) {
        text(date->to_iso());
    } else {
        null();
    }
}

std::string_view JsonWriter::view() {
    const std::string_view written(buffer_.get(), size_);
    if (text::is_valid_utf8(written)) {
        return written;
    }
    return repaired_ = text::to_valid_utf8(written);
}

}  // namespace zr::automation
