#include "xml/xml_document.h"

#include <gtest/gtest.h>
#include <time.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace zr {
namespace {

using namespace std::string_literals;

std::string repeated(const std::string& text, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i) result += text;
    return result;
}

std::string attributes(std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i) result += " a" + std::to_string(i) + "=''";
    return result;
}

// Numbered pieces: front, number, back.
std::string many(const std::string& front, const std::string& back, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i) result += front + std::to_string(i) + back;
    return result;
}

XmlParseError error_of(const std::string& text, const XmlLimits& limits = {}) {
    const XmlNames names;
    auto result = XmlDocument::parse(text, names, limits);
    auto* error = std::get_if<XmlParseError>(&result);
    return error != nullptr ? std::move(*error) : XmlParseError{};
}

// The text of the element <a>, or "error: " and the reason.
std::string text_of_a(const std::string& text) {
    XmlNames names;
    const XmlPath path("//a", names);
    auto result = XmlDocument::parse(text, names);
    if (auto* error = std::get_if<XmlParseError>(&result)) return "error: " + error->reason;
    return std::string(std::get<XmlDocument>(result).root().first(path).text());
}

TEST(XmlDocument, ReadsText) {
    const struct {
        std::string text;
        std::string expected;
    } cases[] = {
        {"<a>plain</a>", "plain"},
        {"<a/>", ""},
        {"<a> \t\r\n x y \n </a>", "x y"},
        {"<a>one\r\ntwo\rthree\nfour</a>", "one\ntwo\nthree\nfour"},
        {"<a>x &lt;&amp;&gt;&quot;&apos; &#65;&#x1F600;</a>", "x <&>\"' A😀"},
        {"<a> &amp; b</a>", "& b"},
        {"<a><![CDATA[ <b> & ]]></a>", "<b> &"},
        {"<a>x<![CDATA[ ]]>y</a>", "x y"},
        {"<a>\n  <b>x</b>\n  <c>y</c>\n</a>", "xy"},
        {"<a>one <b>two</b> three</a>", "one two three"},
        {"<a>x<!-- c --> <!-- d -->y<?p i?>z</a>", "xyz"},
        {"<r>before<a>in<b/>side</a>after</r>", "inside"},
        {"<a>zażółć €</a>", "zażółć €"},
        {"<a>\u00A0x\u00A0</a>", "\u00A0x\u00A0"},  // not white space of markup
        {"\xEF\xBB\xBF<a>mark</a>", "mark"},
        {"<?xml version='1.0' encoding='UTF-16'?><a>é</a>", "é"},
        {"<?xml version='1.0' encoding='ISO-8859-1'?><a>é</a>", "é"},
        {"<?xml version='1.0' encoding='no-such'?><a>é</a>", "é"},
        {"<!DOCTYPE a SYSTEM 'file:///etc/passwd'><a>x</a>", "x"},
        {"<!DOCTYPE a PUBLIC '-//x' \"http://x.invalid/a.dtd['\"  ><a>x</a>", "x"},
        {"<!-- <!DOCTYPE a [ --><?p <!DOCTYPE a [ ?><!DOCTYPE a><!--[--><a>x</a>", "x"},
        {"<r><q xmlns='a b'/><a>x</a></r>", "x"},
        {"<r xmlns:p='c d'><a>x</a></r>", "x"},
    };
    for (const auto& c : cases) EXPECT_EQ(text_of_a(c.text), c.expected) << c.text;
}

TEST(XmlDocument, ReadsAttributes) {
    XmlNames names;
    const XmlNameId a = names.add("a");
    const XmlNameId b = names.add("b");
    const XmlNameId prefixed = names.add("p:b");
    const XmlNameId declaration = names.add("xmlns:p");
    const XmlPath element("e", names);
    auto result =
        XmlDocument::parse("<e skipped='0' xmlns:p='urn:p' a=' 1&#10;&lt;\n2 ' p:b='3'/>", names);
    const XmlDocument document = std::get<XmlDocument>(std::move(result));
    const XmlNode node = document.root().first(element);
    EXPECT_EQ(node.attribute(a), " 1\n< 2 ");
    EXPECT_EQ(node.attribute(prefixed), "3");
    EXPECT_FALSE(node.attribute(b).has_value());
    EXPECT_FALSE(node.attribute(declaration).has_value());
    EXPECT_FALSE(node.attribute(0).has_value());
}

TEST(XmlDocument, RefusesWhatIsNotWellFormed) {
    for (const std::string& text : {""s,
                                    " "s,
                                    "text"s,
                                    "<a>"s,
                                    "<a></b>"s,
                                    "<a/>more"s,
                                    "<a/><b/>"s,
                                    "<a b='1' b='2'/>"s,
                                    "<a b=1/>"s,
                                    "<a b='<'/>"s,
                                    "<a>&nbsp;</a>"s,
                                    "<a>]]></a>"s,
                                    "<a>\x01</a>"s,
                                    "<a>caf\xE9</a>"s,
                                    "<a>\xED\xA0\x80</a>"s,
                                    "<a\0/>"s,
                                    "<a/>\0"s,
                                    "<a>\0</a>"s,
                                    "\0<\0a\0/\0>"s,
                                    "<p:a/>"s,
                                    "<a p:b=''/>"s,
                                    "<a xmlns:p=''/>"s,
                                    "<a xmlns:p='u' xmlns:q='u' p:b='' q:b=''/>"s,
                                    "<!DOCTYPE a SYSTEM 'x'><a>&nbsp;</a>"s,
                                    "<a>&#xD800;&#xDC00;</a>"s,
                                    "\xEF\xBB\xBF\xEF\xBB\xBF<a/>"s,
                                    "<a><!-- -- --></a>"s,
                                    " <?xml version='1.0'?><a/>"s}) {
        const XmlParseError error = error_of(text);
        EXPECT_NE(error.code, 0) << text;
        EXPECT_LT(error.code, XmlParseError::kTooLarge) << text;
        EXPECT_TRUE(error.reason.ends_with("\r\n")) << error.reason;
        EXPECT_EQ(error.reason.find('\n'), error.reason.size() - 1) << error.reason;
    }
}

TEST(XmlDocument, SaysWhereTheFaultIs) {
    const std::string long_line = repeated("é", 5000);
    const struct {
        std::string text;
        std::string source_text;
        int line_position;
    } cases[] = {
        {"<a>\r\n  <b>é</c>\r\n</a>", "  <b>é</c>", 11},
        {"\xEF\xBB\xBF<a></b>", "<a></b>", 8},
        {"<a>\n\n", "", 1},
        {"<a>" + long_line + "</b>" + long_line + "</a>",
         repeated("é", 96) + "</b>" + repeated("é", 100), 5008},
        {"<a>\n<b>x\xFFy</b></a>", "<b>x\uFFFDy</b></a>", 5},
        {"<a>\n"s + "<b>\0</b></a>"s, "<b>\0</b></a>"s, 4},
    };
    for (const auto& c : cases) {
        const XmlParseError error = error_of(c.text);
        EXPECT_EQ(error.source_text, c.source_text);
        EXPECT_EQ(error.line_position, c.line_position) << error.reason << error.source_text;
    }
}

TEST(XmlDocument, RefusesDeclarationsAndWhatPassesABound) {
    const XmlLimits small{.bytes = 1 << 20, .depth = 3, .attributes = 4};
    const auto nested_namespaces = [](int count) {
        std::string open, close;
        for (int i = 0; i < count; ++i) {
            open += "<a xmlns:p" + std::to_string(i) + "='u'>";
            close += "</a>";
        }
        return open + close;
    };
    const struct {
        std::string text;
        XmlLimits limits;
        int code;
    } cases[] = {
        {"<?xml version='1.0' encoding='utf-7'?><a/>", {}, XmlParseError::kDeclaresEncoding},
        {"\xEF\xBB\xBF<?xml version='1.0' encoding = \"HZ-GB-2312\"?><a/>",
         {},
         XmlParseError::kDeclaresEncoding},
        {"<?xml version='1.0' encoding='UTF-16'?><a encoding='HZ'/>", {}, 0},
        {"<?xml version='1.0'?><a b=\"encoding='UTF-7'\"/>", {}, 0},
        {"<!DOCTYPE a []><a/>", {}, XmlParseError::kHasInternalSubset},
        {"\xEF\xBB\xBF<?p '?><!--\"--><!DOCTYPE a PUBLIC '-' '\"]>' [<!ELEMENT a ANY>]><a/>",
         {},
         XmlParseError::kHasInternalSubset},
        {"<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>", {}, XmlParseError::kHasInternalSubset},
        {"<!DOCTYPE a SYSTEM 'x'\n[%undeclared;", {}, XmlParseError::kHasInternalSubset},
        {"<a>" + repeated("<b c='' xmlns='u' xmlns:p='v'/><?d?>", 99) + "</a>", {.names = 20}, 0},
        {"<a>" + many("<b", "/>", 22) + "</a>", {.names = 20}, XmlParseError::kTooManyNames},
        {"<a>" + many("<b c", "=''/>", 22) + "</a>", {.names = 20}, XmlParseError::kTooManyNames},
        {"<a/>" + many("<?p", "?>", 22), {.names = 20}, XmlParseError::kTooManyNames},
        {"<a>" + many("<b xmlns='u", "'/>", 20) + "</a>", {.names = 20}, 0},
        {"<a>" + many("<b xmlns='u", "'/>", 21) + "</a>",
         {.names = 20},
         XmlParseError::kTooManyDistinctNamespaces},
        {"<a/>" + std::string((1 << 20) - 4, ' '), small, 0},
        {"<a/>" + std::string((1 << 20) - 3, ' '), small, XmlParseError::kTooLarge},
        {"<a><b><c/></b></a>", small, 0},
        {"<a><b><c><d/></c></b></a>", small, XmlParseError::kTooDeep},
        {repeated("<a>", 256) + repeated("</a>", 256), {}, 0},
        {repeated("<a>", 257) + repeated("</a>", 257), {}, XmlParseError::kTooDeep},
        {"<a" + attributes(4) + "/>", small, 0},
        {"<a" + attributes(5) + "/>", small, XmlParseError::kTooManyAttributes},
        {"<a" + attributes(256) + "/>", {}, 0},
        {"<r>x<a" + attributes(257) + "/>y</r>", {}, XmlParseError::kTooManyAttributes},
        {"<a><!--<b" + attributes(9) + "/>--><![CDATA[<b" + attributes(9) + "/>]]></a>", small, 0},
        {"<a b='" + repeated("=", 99) + "'>" + repeated(" c=''", 99) + "</a>", small, 0},
        {"<?p <!-- ?><!DOCTYPE a SYSTEM '<!--'><a" + attributes(5) + "/>", small,
         XmlParseError::kTooManyAttributes},
        {nested_namespaces(250), {}, 0},
        {nested_namespaces(9), {.depth = 20, .attributes = 4}, XmlParseError::kTooManyNamespaces},
    };
    for (const auto& c : cases) {
        const XmlParseError error = error_of(c.text, c.limits);
        EXPECT_EQ(error.code, c.code) << c.text.substr(0, 120) << error.reason;
    }
    EXPECT_EQ(error_of("<a" + attributes(5) + "/>", small).reason,
              "An element has more than 4 attributes.\r\n");
}

TEST(XmlDocument, ReadsTheSameWhereverTheParserCutsTheText) {
    // The parser takes the text in portions of 4000 bytes: each row moves the cut by one byte.
    const std::string piece =
        "<b k=\"v&amp;&#233;é\r\n\">é€😀 &amp;\r\n&#13;x]]&gt;y<![CDATA[]]]]><!-- é --> "
        "<c/>\r</b>\r\n";
    XmlNames names;
    const XmlPath a("a", names), b("a/b", names), k("@k", names);
    for (std::size_t shift = 0; shift < 160; ++shift) {
        const std::string text =
            "<a>" + std::string(3850 + shift, '.') + repeated(piece, 3) + "</a>";
        auto result = XmlDocument::parse(text, names);
        ASSERT_TRUE(std::holds_alternative<XmlDocument>(result)) << shift;
        const auto nodes = std::get<XmlDocument>(result).root().select(b);
        ASSERT_EQ(nodes.size(), 3U) << shift;
        for (const XmlNode& node : nodes) {
            EXPECT_EQ(node.text(), "é€😀 &\n\rx]]>y]]") << shift;
            EXPECT_EQ(node.value(k), "v&éé ") << shift;
        }
    }
}

TEST(XmlDocument, KeepsHandlesWhenItMoves) {
    XmlNames names;
    const XmlPath path("a/b", names);
    XmlDocument first = std::get<XmlDocument>(XmlDocument::parse("<a><b>x</b></a>", names));
    const XmlNode node = first.root().first(path);
    const XmlDocument second = std::move(first);
    EXPECT_EQ(node.text(), "x");
    EXPECT_EQ(node, second.root().first(path));
}

TEST(XmlDocument, ReadsHugeTextsInLinearTime) {
    const auto start = std::chrono::steady_clock::now();
    XmlNames names;
    const XmlPath leaves("a/b", names);
    const std::string text = "<a><b k='" + std::string(10U << 20, 'v') + "'>" +
                             repeated("é& ", 1U << 20).replace(2, 1, "+") + "</b></a>";
    EXPECT_NE(error_of(text).code, 0);  // a bare "&"
    const std::string good = "<a><b>" + std::string(10U << 20, 'x') + "</b>" +
                             repeated("<b z='1'>é=</b>", 1U << 20) + "</a>";
    auto result = XmlDocument::parse(good, names);
    EXPECT_EQ(std::get<XmlDocument>(result).root().select(leaves).size(), (1U << 20) + 1);
    error_of("<a" + repeated(" b='' ", 1U << 20) + "/>");
    error_of(repeated("<a b='\"'", 1U << 20));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(XmlNames, AreSmallIntegers) {
    XmlNames names;
    EXPECT_EQ(names.size(), 1U);
    EXPECT_EQ(names.add("a"), 1);
    EXPECT_EQ(names.add("b"), 2);
    EXPECT_EQ(names.add("a"), 1);
    EXPECT_EQ(names.find("b"), 2);
    EXPECT_EQ(names.find("c"), 0);
    EXPECT_EQ(names.size(), 3U);
}

// More names than the parser's cache of ids holds, read more than once.
TEST(XmlNames, ManyAreToldApart) {
    XmlNames names;
    std::string text = "<r>";
    std::vector<XmlPath> paths;
    for (int i = 0; i < 4000; ++i) {
        const std::string name = "n" + std::to_string(i * 7 % 2000);
        if (i < 2000) paths.emplace_back("r/" + name, names);
        text += "<" + name + ">" + name + "</" + name + ">";
    }
    auto result = XmlDocument::parse(text + "</r>", names);
    const XmlNode root = std::get<XmlDocument>(result).root();
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const auto found = root.select(paths[i]);
        ASSERT_EQ(found.size(), 2U);
        ASSERT_EQ(found[1].text(), "n" + std::to_string(i * 7 % 2000));
    }
}

}  // namespace
}  // namespace zr
