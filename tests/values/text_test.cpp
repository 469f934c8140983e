#include "values/text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "zrcreditbureau/error.h"

namespace zr::text {
namespace {

using namespace std::string_view_literals;

TEST(Text, CountsAndCutsByCodePoints) {
    const struct {
        std::string_view value;
        std::size_t count;
        std::size_t length;
        std::string_view first;
        std::string_view cut;
    } cases[] = {
        {"", 3, 0, "", ""},
        {"abc", 0, 3, "", ""},
        {"abc", 3, 3, "abc", "abc"},
        {"ab  cd", 4, 6, "ab  ", "ab"},
        {"ab\t", 9, 3, "ab\t", "ab\t"},
        {"Zoë Māori", 3, 9, "Zoë", "Zoë"},
        {"Zoë Māori", 6, 9, "Zoë Mā", "Zoë Mā"},
        {"€😀 x", 3, 4, "€😀 ", "€😀"},
        {"a\xFF\xE2\x82z", 3, 5, "a\xFF\xE2", "a\xFF\xE2"},  // every invalid byte counts as one
    };
    for (const auto& row : cases) {
        EXPECT_EQ(length(row.value), row.length) << row.value;
        EXPECT_EQ(first(row.value, row.count), row.first);
        EXPECT_EQ(cut(row.value, row.count), row.cut);
    }
}

TEST(Text, TrimsBlanksOnly) {
    EXPECT_EQ(trim("  a b "), "a b");
    EXPECT_EQ(trim("\t a\n"), "\t a\n");
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(trim(""), "");
    EXPECT_EQ(trim_right("  a  "), "  a");
}

TEST(Text, MapsCaseOneCodePointToOne) {
    const struct {
        const char* value;
        const char* upper;
        const char* lower;
    } cases[] = {
        {"abcXYZ[`{@09", "ABCXYZ[`{@09", "abcxyz[`{@09"},
        {"Zoë Māori", "ZOË MĀORI", "zoë māori"},
        {"Straße", "STRAßE", "straße"},  // no capital for the sharp s in simple mapping
        {"ÿ", "Ÿ", "ÿ"},
        {"ﬁ Σσς", "ﬁ ΣΣΣ", "ﬁ σσς"},
        {"a\xC3z", "A\xC3Z", "a\xC3z"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(upper(row.value), row.upper);
        EXPECT_EQ(lower(row.value), row.lower);
    }
}

TEST(Text, ComparesAndHashesWithoutCase) {
    const struct {
        const char* left;
        const char* right;
        bool equal;
    } cases[] = {
        {"VedaXMLAU", "vedaxmlau", true},
        {"a", "ab", false},
        {"ab", "a", false},
        {"", "", true},
        {"[", "{", false},
        {"MĀORI", "māori", true},
        {"σ", "ς", true},
        {"ſ", "s", true},
        {"ı", "I", true},
        {"\xFF", "\xFE", false},
        {"\xFF", "\xFF", true},
        {"ß", "ss", false},
        {"é", "e", false},
        {"\xC3", "\xC3\x89", false},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(equal_ignoring_case(row.left, row.right), row.equal) << row.left << row.right;
        EXPECT_EQ(hash_ignoring_case(row.left) == hash_ignoring_case(row.right), row.equal);
        EXPECT_EQ(upper(row.left) == upper(row.right), row.equal);
    }
}

TEST(Text, ReplacesEveryOccurrence) {
    EXPECT_EQ(replace_all("a&b&&c", "&", "&amp;"), "a&amp;b&amp;&amp;c");
    EXPECT_EQ(replace_all("aaa", "aa", "b"), "ba");
    EXPECT_EQ(replace_all("abc", "", "x"), "abc");
    EXPECT_EQ(replace_all("abc", "abc", ""), "");
}

TEST(Text, KnowsValidUtf8) {
    constexpr std::string_view kBad = "\xEF\xBF\xBD";
    const struct {
        std::string_view value;
        std::size_t invalid_bytes;
    } cases[] = {
        {"", 0},
        {"a\0b"sv, 0},
        {"\xC2\x80 \xDF\xBF \xE0\xA0\x80 \xED\x9F\xBF \xEE\x80\x80 \xEF\xBF\xBF", 0},
        {"\xF0\x90\x80\x80 \xF4\x8F\xBF\xBF", 0},
        {"\x80", 1},
        {"\xC0\x80", 2},          // overlong
        {"\xC1\xBF", 2},          // overlong
        {"\xE0\x9F\xBF", 3},      // overlong
        {"\xF0\x8F\xBF\xBF", 4},  // overlong
        {"\xED\xA0\x80", 3},      // a surrogate
        {"\xF4\x90\x80\x80", 4},  // above U+10FFFF
        {"\xF5\x80\x80\x80", 4},
        {"\xFE\xFF", 2},
        {"\xC3", 1},  // cut short
        {"\xE2\x82", 2},
        {"\xF0\x9F\x98", 3},
    };
    // At every offset to a block, so that the fast path meets every border.
    for (const auto& row : cases) {
        for (std::size_t offset = 0; offset < 70; ++offset) {
            const std::string before(offset, 'x');
            std::string text = before;
            text.append(row.value).append("tail");
            EXPECT_EQ(is_valid_utf8(text), row.invalid_bytes == 0) << offset;
            std::string mended = before;
            if (row.invalid_bytes == 0) {
                mended.append(row.value);
            }
            for (std::size_t i = 0; i < row.invalid_bytes; ++i) {
                mended.append(kBad);
            }
            EXPECT_EQ(to_valid_utf8(text), mended.append("tail"));
        }
    }
    EXPECT_FALSE(is_valid_utf8("\xE2\x82"));
    EXPECT_EQ(to_valid_utf8("a\xFFé"), std::string("a").append(kBad).append("é"));
}

TEST(Text, MovesThroughCodePoints) {
    constexpr std::string_view kText = "aé€😀\xFF";
    std::vector<char32_t> found;
    std::string again;
    for (std::size_t position = 0; position < kText.size();) {
        found.push_back(next_code_point(kText, position));
        append_code_point(again, found.back());
    }
    EXPECT_EQ(found, (std::vector<char32_t>{'a', 0xE9, 0x20AC, 0x1F600, 0xFFFD}));
    EXPECT_EQ(again, "aé€😀\xEF\xBF\xBD");
    std::string text;
    append_code_point(text, 0xD800);
    append_code_point(text, 0x110000);
    EXPECT_EQ(text, "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Text, KnowsTheAnsiCodePage) {
    const struct {
        char32_t code_point;
        unsigned code;
    } cases[] = {
        {'A', 65},     {0x7F, 127},   {0xA0, 160},   {0xE9, 233},   {0xFF, 255},
        {0x20AC, 128}, {0x0192, 131}, {0x2013, 150}, {0x2122, 153}, {0x0178, 159},
        {0x0081, 129}, {0x8D, 141},   {0x8F, 143},   {0x90, 144},   {0x9D, 157},
        {0x80, '?'},   {0x92, '?'},   {0x100, '?'},  {0x0101, '?'}, {0x1F600, '?'},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(to_windows_1252(row.code_point), row.code)
            << static_cast<unsigned>(row.code_point);
    }
}

TEST(Text, DecodesCharsets) {
    const struct {
        std::string_view bytes;
        const char* charset;
        std::string_view expected;
    } cases[] = {
        {"caf\xC3\xA9", "utf-8", "café"},
        {"caf\xE9", "UTF-8", "caf\xEF\xBF\xBD"},
        {"caf\xE9 \x80", "windows-1252", "café €"},
        {"caf\xE9", "ISO-8859-1", "café"},
        {"a\x81z", "windows-1252", "a\xEF\xBF\xBDz"},
        {"a\xE9z", "us-ascii", "a\xEF\xBF\xBDz"},
        {"a\0\xAC\x20"sv, "utf-16le", "a€"},
        {"\0a\x20\xAC"sv, "utf-16be", "a€"},
        {"\x3D\xD8\0\xDE"sv, "utf-16le", "\xF0\x9F\x98\x80"},
        {"\xED\x9F\xBF\xEE\x80\x80", "utf-8", "\xED\x9F\xBF\xEE\x80\x80"},  // beside them
        {"\x1B$B\x46\x7C\x1B(B"sv, "iso-2022-jp", "日"},
        {"", "windows-1252", ""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(decode(row.bytes, row.charset), row.expected) << row.charset;
    }
    const std::string large(100'000, '\xE9');
    EXPECT_EQ(decode(large, "latin1"), replace_all(large, "\xE9", "é"));
}

TEST(Text, RefusesCharsetsThatItDoesNotKnow) {
    for (const std::string charset :
         {"", "klingon", "utf-8//IGNORE", "latin1//TRANSLIT", "../../tmp/x", "a b", "\xC3\xA9",
          "UTF-7", "utf7", "UTF-7-IMAP", "unicode-1-1-utf-7", "HZ", "hz-gb-2312"}) {
        try {
            decode("x", charset);
            ADD_FAILURE() << charset;
        } catch (const PlatformError& error) {
            EXPECT_EQ(error.number(), error_number::kInvalidReply);
        }
    }
}

TEST(Text, RefusesHalvesOfSurrogatePairs) {
    const struct {
        std::string_view bytes;
        const char* charset;
    } cases[] = {
        {"a\0\0\xDCz\0"sv, "utf-16le"}, {"\xD8\0\0a"sv, "utf-16be"},
        {"a\0\x3D\xD8"sv, "UTF-16LE"},  {"a\0z"sv, "utf-16le"},  // cut short
        {"\xD8\0"sv, "ucs-2be"},        {"\0\xD8\0\0"sv, "utf-32le"},
        {"\xED\xA0\x80", "utf-8"},      {"a\xED\xB0\x80z", "UTF8"},
    };
    for (const auto& row : cases) {
        try {
            ADD_FAILURE() << row.charset << decode(row.bytes, row.charset);
        } catch (const PlatformError& error) {
            EXPECT_EQ(error.description(), "The reply is not valid text in its character set");
        }
    }
}

}  // namespace
}  // namespace zr::text
