// Charsets by the system's code pages; those with units of several bytes by their rules.
#include "platform/charset.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/unicode.h"

namespace zr {
namespace {

/// A code page of one or two bytes a character, character by character.
class PageDecoder : public CharsetDecoder {
  public:
    explicit PageDecoder(UINT page) : page_(page) {}

    bool decode(std::string_view& input, std::string& target) override {
        while (!input.empty()) {
            const auto lead = static_cast<BYTE>(input.front());
            const std::size_t size = IsDBCSLeadByteEx(page_, lead) != 0 ? 2 : 1;
            if (size > input.size() || !append(input.substr(0, size), target)) return false;
            input.remove_prefix(size);
        }
        return true;
    }

  private:
    bool append(std::string_view bytes, std::string& target) const {
        constexpr UINT kAscii = 20127;
        const auto lead = static_cast<unsigned char>(bytes.front());
        if (page_ == kAscii && lead >= 0x80) return false;
        std::array<wchar_t, 2> units{};
        const int count =
            MultiByteToWideChar(page_, MB_ERR_INVALID_CHARS, bytes.data(),
                                static_cast<int>(bytes.size()), units.data(), units.size());
        if (count != 1 || is_without_character(units[0], lead)) return false;
        text::append_code_point(target, units[0]);
        return true;
    }

    /// The system fills what a page leaves open: in its own pages with controls and private
    /// characters.
    bool is_without_character(wchar_t unit, unsigned char lead) const {
        constexpr UINT kFirstStandard = 20000;
        const bool is_control = unit >= 0x80 && unit < 0xA0 && page_ < kFirstStandard;
        const bool is_private = unit >= 0xE000 && unit < 0xF900;
        return lead >= 0x80 && (is_control || is_private);
    }

    UINT page_;
};

/// UTF-16 and UTF-32 in either order of bytes.
class UnitDecoder : public CharsetDecoder {
  public:
    UnitDecoder(std::size_t unit_size, bool is_big) : unit_size_(unit_size), is_big_(is_big) {}

    bool decode(std::string_view& input, std::string& target) override {
        while (!input.empty()) {
            std::size_t size = unit_size_;
            if (input.size() < size) return false;
            char32_t code = unit(input);
            if (size == 2 && code >= 0xD800 && code < 0xDC00 && input.size() >= 2 * size) {
                const char32_t low = unit(input.substr(size));
                if (low < 0xDC00 || low > 0xDFFF) return false;
                code = 0x10000 + ((code - 0xD800) << 10U) + (low - 0xDC00);
                size *= 2;
            }
            if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return false;
            text::append_code_point(target, code);
            input.remove_prefix(size);
        }
        return true;
    }

  private:
    char32_t unit(std::string_view bytes) const {
        char32_t value = 0;
        for (std::size_t i = 0; i < unit_size_; ++i) {
            const std::size_t at = is_big_ ? i : unit_size_ - 1 - i;
            value = value << 8U | static_cast<unsigned char>(bytes[at]);
        }
        return value;
    }

    std::size_t unit_size_;
    bool is_big_;
};

struct Units {
    std::string_view name;
    std::size_t size;
    bool is_big;
};

constexpr Units kUnits[] = {
    {"UTF-16", 2, false}, {"UTF-16LE", 2, false}, {"UTF-16BE", 2, true},  {"UTF16", 2, false},
    {"UCS-2", 2, false},  {"UTF-32", 4, false},   {"UTF-32LE", 4, false}, {"UTF-32BE", 4, true},
    {"UTF32", 4, false},  {"UCS-4", 4, true},     {"UNICODE", 2, false},
};

struct Page {
    std::string_view name;
    UINT number;
};

constexpr Page kPages[] = {
    {"US-ASCII", 20127},    {"ASCII", 20127},       {"ANSI_X3.4-1968", 20127},
    {"ISO-8859-1", 28591},  {"ISO8859-1", 28591},   {"ISO_8859-1", 28591},
    {"LATIN1", 28591},      {"L1", 28591},          {"ISO-8859-2", 28592},
    {"ISO-8859-3", 28593},  {"ISO-8859-4", 28594},  {"ISO-8859-5", 28595},
    {"ISO-8859-6", 28596},  {"ISO-8859-7", 28597},  {"ISO-8859-8", 28598},
    {"ISO-8859-9", 28599},  {"ISO-8859-13", 28603}, {"ISO-8859-15", 28605},
    {"WINDOWS-1250", 1250}, {"WINDOWS-1251", 1251}, {"WINDOWS-1252", 1252},
    {"WINDOWS-1253", 1253}, {"WINDOWS-1254", 1254}, {"WINDOWS-1255", 1255},
    {"WINDOWS-1256", 1256}, {"WINDOWS-1257", 1257}, {"WINDOWS-1258", 1258},
    {"CP1252", 1252},       {"KOI8-R", 20866},      {"KOI8-U", 21866},
    {"IBM437", 437},        {"IBM850", 850},        {"SHIFT_JIS", 932},
    {"GB2312", 936},        {"GBK", 936},           {"BIG5", 950},
    {"EUC-KR", 949},
};

}  // namespace

std::unique_ptr<CharsetDecoder> open_charset(const std::string& name) {
    const std::string upper = text::upper(name);
    const auto is_named = [&upper](const auto& row) { return row.name == upper; };
    const auto* const units = std::find_if(std::begin(kUnits), std::end(kUnits), is_named);
    if (units != std::end(kUnits)) {
        return std::make_unique<UnitDecoder>(units->size, units->is_big);
    }
    const auto* const page = std::find_if(std::begin(kPages), std::end(kPages), is_named);
    if (page == std::end(kPages) || IsValidCodePage(page->number) == 0) return nullptr;
    return std::make_unique<PageDecoder>(page->number);
}

}  // namespace zr
