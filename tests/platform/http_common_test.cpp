// The text of a reply, by byte-order mark, charset or neither.
#include "platform/http_common.h"

#include <gtest/gtest.h>

#include "zrcreditbureau/error.h"

namespace zr {
namespace {

using namespace std::string_literals;

TEST(DecodeReply, ByteOrderMarkThenCharsetThenUtf8) {
    const struct {
        std::string bytes;
        std::string content_type;
        std::string text;
    } cases[] = {
        {"caf\xC3\xA9", "", "caf\xC3\xA9"},
        {"caf\xE9!", "text/xml", "caf\xEF\xBF\xBD!"},
        {"", "text/xml; charset=utf-16", ""},
        {"\xEF\xBB\xBFx", "", "x"},
        {"\xEF\xBB\xBF\xC3\xA9", "text/xml; charset=iso-8859-1", "\xC3\xA9"},
        {"\xFF\xFE\xE9\0x\0"s, "text/xml; charset=utf-8", "\xC3\xA9x"},
        {"\xFE\xFF\0\xE9\0x"s, "", "\xC3\xA9x"},
        {"\xFF\xFE\0\0x\0\0\0"s, "", "x"},
        {"\0\0\xFE\xFF\0\0\0x"s, "text/xml; charset=utf-8", "x"},
        {"\xE9\x80", "text/xml; charset=windows-1252", "\xC3\xA9\xE2\x82\xAC"},
        {"\xE9", "text/xml;CHARSET=\"ISO-8859-1\"", "\xC3\xA9"},
        {"\xE9", "text/xml; a=b; charset = ISO-8859-1 ; c=d", "\xC3\xA9"},
        {"\xE9", "text/xml; charset=", "\xEF\xBF\xBD"},
        {"\xE9", "text/xml; xcharset=iso-8859-1", "\xEF\xBF\xBD"},
        {"\xC3\xA9", "charset=iso-8859-1", "\xC3\xA9"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(decode_reply(row.bytes, row.content_type), row.text)
            << row.bytes << " as " << row.content_type;
}

TEST(DecodeReply, AnUnknownCharsetIsNamedAsFarAsItIsFitToShow) {
    const struct {
        std::string charset;
        std::string shown;
    } cases[] = {
        {"klingon", "klingon"},
        {"UTF-8//IGNORE", "UTF-8??IGNORE"},
        {"<b>\x01", "?b??"},
        {std::string(500, 'x'), std::string(40, 'x')},
    };
    for (const auto& row : cases) {
        try {
            decode_reply("x", "text/xml; charset=" + row.charset);
            ADD_FAILURE() << row.charset;
        } catch (const PlatformError& error) {
            EXPECT_EQ(error.number(), error_number::kInvalidReply);
            EXPECT_EQ(error.description(),
                      "The reply is in a character set that is not known (" + row.shown + ")");
        }
    }
}

TEST(DecodeReply, ASecondByteOrderMarkIsRefused) {
    for (const std::string& bytes :
         {"\xEF\xBB\xBF\xEF\xBB\xBFx"s, "\xFF\xFE\xFF\xFEx\0"s, "\xFE\xFF\xFE\xFF\0x"s}) {
        try {
            ADD_FAILURE() << decode_reply(bytes, "text/xml");
        } catch (const PlatformError& error) {
            EXPECT_EQ(error.description(), "The reply begins with two byte-order marks");
        }
    }
}

}  // namespace
}  // namespace zr
