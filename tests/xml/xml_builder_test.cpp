#include <gtest/gtest.h>

#include "zrcreditbureau/error.h"
#include "zrcreditbureau/zr_xml_builder.h"

namespace zr {
namespace {

using Flags = zreXMLBuilderEncodeOptions;
constexpr Flags kNone = Flags::zreXMLBuilderEncodeOptionsNone;
constexpr Flags kNonAscii = Flags::zreXMLBuilderEncodeOptionsNonASCII;
constexpr Flags kLineFeeds = Flags::zreXMLBuilderEncodeOptionsLineFeeds;

const DateTime kDay = DateTime::ymd(1970, 1, 2);
const DateTime kMoment{kDay.date, std::chrono::seconds(14 * 3600 + 7 * 60 + 9)};

std::string written(void (*write)(ZRXMLBuilder&)) {
    ZRXMLBuilder builder;
    write(builder);
    return builder.XML();
}

TEST(XmlBuilder, WritesTagsAndValues) {
    const struct {
        void (*write)(ZRXMLBuilder&);
        const char* expected;
    } cases[] = {
        {[](ZRXMLBuilder& xml) {
             xml.TagOpen("a");
             xml.TagOpen("b");
             xml.TagClose("b");
             xml.TagClose("a");
         },
         "<a><b></b>\r</a>\r"},
        {[](ZRXMLBuilder& xml) {
             xml.TagOpen("a");
             xml.WriteAttribute("x", "<&>'\"");
             xml.WriteAttribute("empty", "");
             xml.WriteAttribute("left-out", "", true);
             xml.WriteAttribute("kept", " ", true);
         },
         "<a x=\"&lt;&amp;&gt;&apos;&quot;\" empty=\"\" kept=\" \">"},
        {[](ZRXMLBuilder& xml) {
             xml.TagOpen("a");
             xml.WriteText("<&>'\"\xC2\xA0&amp;");
             xml.WriteRaw("<&>");
             xml.TagClose("a");
         },
         "<a>&lt;&amp;&gt;'\"&#160;&amp;amp;<&></a>\r"},
        {[](ZRXMLBuilder& xml) {
             xml.TagOpen("a");
             xml.WriteTagWithText("b", "", true);
             xml.TagClose("a");
         },
         "<a></a>\r"},
        {[](ZRXMLBuilder& xml) {
             xml.TagOpen("a");
             xml.WriteDate(Null{});
             xml.WriteTagWithText("b", "");
             xml.WriteTagWithText("c", "x & y", true);
         },
         "<a><b></b><c>x &amp; y</c>"},
        {[](ZRXMLBuilder& xml) {
             xml.WriteBoolean(true);
             xml.WriteBoolean(false);
             xml.WriteTagWithBoolean("b", true);
         },
         "truefalse<b>true</b>"},
        {[](ZRXMLBuilder& xml) {
             xml.WriteDate(kMoment);
             xml.WriteDateTime(kMoment);
             xml.WriteDateTime(kDay);
             xml.WriteDateTime(Null{});
         },
         "1970-01-021970-01-02T14:07:091970-01-02T00:00:00"},
        {[](ZRXMLBuilder& xml) {
             xml.WriteTagWithDate("d", kMoment);
             xml.WriteTagWithDateTime("t", kMoment);
             xml.WriteTagWithUtcDateTime("u", kMoment);
         },
         "<d>1970-01-02</d><t>1970-01-02T14:07:09</t><u>1970-01-02T14:07:09Z</u>"},
        {[](ZRXMLBuilder& xml) {
             xml.WriteTagWithDate("d", Null{}, true);
             xml.WriteTagWithDateTime("t", Null{}, true);
             xml.WriteTagWithUtcDateTime("u", Null{}, true);
         },
         ""},
        {[](ZRXMLBuilder& xml) {
             xml.WriteTagWithDate("d", Null{});
             xml.WriteTagWithDateTime("t", std::string(), true);  // no date, but not null
             xml.WriteDate(DateTime());
             xml.WriteDateTime(DateTime::ymd(2012, 2, 30));
             xml.WriteTagWithDate("gone", DateTime::ymd(99, 1, 1), true);
             xml.WriteTagWithUtcDateTime("u", Null{});
         },
         "<d></d><t></t><u></u>"},
        // A text in place of a date is the date that it reads as, else itself.
        {[](ZRXMLBuilder& xml) {
             xml.WriteDate("2/01/1970");
             xml.WriteText("|");
             xml.WriteDateTime("2 Jan 1970 2:07:09 pm");
             xml.WriteText("|");
             xml.WriteDate("soon & <later>");
         },
         "1970-01-02|1970-01-02T14:07:09|soon &amp; &lt;later&gt;"},
        {[](ZRXMLBuilder& xml) {
             xml.WriteTagWithDate("d", "1970-01-02", true);
             xml.WriteTagWithUtcDateTime("u", "2/01/1970");
             xml.WriteTagWithUtcDateTime("v", "<soon>");
         },
         "<d>1970-01-02</d><u>1970-01-02T00:00:00Z</u><v>&lt;soon&gt;</v>"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(written(row.write), row.expected);
    }
}

TEST(XmlBuilder, TakesAttributesInAnOpenTagOnly) {
    const auto expect_refused = [](ZRXMLBuilder& builder) {
        const std::string before = builder.XML();
        try {
            builder.WriteAttribute("a", "b");
            ADD_FAILURE() << "not refused after " << before;
        } catch (const PlatformError& error) {
            EXPECT_EQ(error.number(), -2147221504);
            EXPECT_EQ(error.source(), "ZRApp7.ZRXMLBuilder.WriteAttribute");
            EXPECT_EQ(error.description(), "Attribute is not enclosed in an element tag.");
        }
        EXPECT_EQ(builder.XML(), before);
    };
    ZRXMLBuilder builder;
    expect_refused(builder);
    builder.TagOpen("a");
    expect_refused(builder);  // XML closes the start tag
    builder.TagOpen("a");
    builder.WriteTagWithText("b", "", true);
    expect_refused(builder);
    builder.TagOpen("a");
    builder.Clear();
    expect_refused(builder);
}

TEST(XmlBuilder, EncodesText) {
    const struct {
        Flags options;
        const char* text;
        const char* expected;
    } cases[] = {
        {kNone, "caf\u00E9\r\n\u20AC", "caf\u00E9\r\n\u20AC"},
        {kNonAscii, "caf\u00E9 \u007F\u00A0\u00FF", "caf&#233; \u007F&#160;&#255;"},
        {kNonAscii, "\u20AC\u4E2D\U0001F600\r\n", "&#128;??\r\n"},
        {kLineFeeds, "a\r\nb\rc\nd\n\re", "a&#10;b&#10;c&#10;d&#10;&#10;e"},
        {kNonAscii | kLineFeeds, "\u00E9\n<", "&#233;&#10;&lt;"},
    };
    for (const auto& row : cases) {
        ZRXMLBuilder builder;
        builder.EncodeOptions(row.options);
        builder.WriteText(row.text);
        EXPECT_EQ(builder.XML(), row.expected);
    }
}

TEST(XmlBuilder, EncodesTheWholeOnceMoreOnRequest) {
    ZRXMLBuilder builder;
    builder.TagOpen("a");
    builder.WriteAttribute("b", "\u00E9");
    builder.WriteRaw("\u00E9");
    builder.TagClose("a");
    EXPECT_EQ(builder.XML(), "<a b=\"\u00E9\">\u00E9</a>\r");
    EXPECT_EQ(builder.XML(false, kLineFeeds), builder.XML());
    // The property decides what the pass does, the argument only that there is one.
    builder.EncodeOptions(kNonAscii);
    EXPECT_EQ(builder.XML(), "<a b=\"\u00E9\">\u00E9</a>\r");
    EXPECT_EQ(builder.XML(false, kLineFeeds), "<a b=\"&#233;\">&#233;</a>\r");
    builder.EncodeOptions(kLineFeeds);
    EXPECT_EQ(builder.XML(false, kNonAscii), "<a b=\"\u00E9\">\u00E9</a>&#10;");
}

TEST(XmlBuilder, PutsTheHeaderInFront) {
    ZRXMLBuilder builder;
    EXPECT_EQ(builder.XML(true), "<?xml version=\"1.0\"?>");
    builder.Encoding("UTF-8");
    builder.EncodeOptions(kLineFeeds);
    builder.TagOpen("a");
    EXPECT_EQ(builder.XML(true), "<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>");
    builder.Clear();
    EXPECT_EQ(builder.XML(), "");
    EXPECT_EQ(builder.Encoding(), "UTF-8");
    EXPECT_EQ(builder.EncodeOptions(), kLineFeeds);
}

}  // namespace
}  // namespace zr
