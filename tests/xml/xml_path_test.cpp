#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "xml/xml_document.h"

namespace zr {
namespace {

constexpr const char* kReply =
    "<reply version='1.0'>"
    "<person id='p1'><name>Ann</name><address type='current'><state>NSW</state></address>"
    "<address type='previous'><state>VIC</state></address>"
    "<address type='previous'><state>QLD</state></address></person>"
    "<person id='p2' xml:lang='en'><name>Bob</name><note>n1</note><name>Bobby</name></person>"
    "<group><group><person id='p3'/><name>inner</name></group><name>outer</name></group>"
    "<other xmlns='urn:other'><person id='p4'/><x:name xmlns:x='urn:x' x:id='q'>far</x:name>"
    "</other></reply>";

// Each result as the value of an id or its text, joined by blanks.
std::string selected(const XmlNode& context, const char* expression, XmlNames& names) {
    std::string result;
    for (const XmlNode& node : context.select(XmlPath(expression, names))) {
        const auto id = node.attribute(names.find("id"));
        if (!result.empty()) result += ' ';
        result += id ? *id : node.text();
    }
    return result;
}

XmlDocument parsed(const char* text, const XmlNames& names) {
    auto result = XmlDocument::parse(text, names);
    if (auto* error = std::get_if<XmlParseError>(&result)) throw std::runtime_error(error->reason);
    return std::get<XmlDocument>(std::move(result));
}

// Names are known only to paths compiled before the document is parsed.
struct Fixture {
    explicit Fixture(std::initializer_list<const char*> expressions) {
        names.add("id");
        for (const char* expression : expressions) XmlPath(expression, names);
    }
    XmlNames names;
};

TEST(XmlPath, SelectsInDocumentOrderEachOnce) {
    const struct {
        const char* path;
        const char* expected;
    } cases[] = {
        {"reply/person", "p1 p2"},
        {" / reply / person ", "p1 p2"},
        {"//person", "p1 p2 p3"},  // none in a namespace
        {"//name", "Ann Bob Bobby inner outer"},
        {"//group/name", "inner outer"},  // the inner group comes second, its name first
        {"//group//name", "inner outer"},
        {"//group/person", "p3"},
        {"reply//state", "NSW VIC QLD"},
        {"./reply/person/name", "Ann Bob Bobby"},
        {"reply/person/name[1]", "Ann Bob"},  // counted in each parent
        {"//name[2]", "Bobby"},
        {"//name[1]", "Ann Bob inner outer"},
        {"reply/person[2]/name[2]", "Bobby"},
        {"reply/person[3]", ""},
        {"//address[@type='previous'][2]", "QLD"},
        {"//address[ @type = \"previous\" ]/state", "VIC QLD"},
        {"//person[@id='p2'][@xml:lang='en']", "p2"},
        {"//person[@id='p1'][@xml:lang='en']", ""},
        {"//other", ""},
        {"reply/group | reply/person", "p1 p2 innerouter"},
        {"//person | reply/person", "p1 p2 p3"},
        {"(reply/group | reply/person)/name", "Ann Bob Bobby outer"},
        {"((reply/group | reply)/group | reply/person)/name", "Ann Bob Bobby inner outer"},
        {"//person/@id", ""},  // elements only
        {"person", ""},
        {"reply/missing//name", ""},
    };
    for (const auto& c : cases) {
        Fixture fixture{c.path};
        const XmlDocument document = parsed(kReply, fixture.names);
        EXPECT_EQ(selected(document.root(), c.path, fixture.names), c.expected) << c.path;
        const XmlPath path(c.path, fixture.names);
        const auto all = document.root().select(path);
        EXPECT_EQ(document.root().first(path), all.empty() ? XmlNode{} : all.front()) << c.path;
    }
}

TEST(XmlPath, ReadsTheFirstValue) {
    const struct {
        const char* path;
        const char* expected;
    } cases[] = {
        {"name", "Bob"},
        {"@id", "p2"},
        {"@xml:lang", "en"},
        {"@lang", "(none)"},
        {"note | @id", "p2"},  // an attribute precedes the children
        {"@xml:lang | @id", "p2"},
        {". | @id", "Bobn1Bobby"},
        {"@id | .", "Bobn1Bobby"},
        {"note | name", "Bob"},
        {"missing | note", "n1"},
        {"/reply/@version", "1.0"},
        {"//address/@type", "current"},
        {"//group/name", "inner"},
        {"missing/@id", "(none)"},
        // Of the first element only, whatever later ones have; each path of a union for itself.
        {"/reply/person/@xml:lang", "(none)"},
        {"//group/person[1]/@id", "p3"},
        {"//person/@xml:lang", "(none)"},
        {"//person[@id='p2']/@xml:lang", "en"},
        {"//address/@missing | /reply/person/@id | @id", "p1"},
        {"@missing | //state", "NSW"},
    };
    for (const auto& c : cases) {
        Fixture fixture{"reply/person[2]", c.path};
        const XmlDocument document = parsed(kReply, fixture.names);
        const XmlNode person = document.root().first(XmlPath("reply/person[2]", fixture.names));
        EXPECT_EQ(person.value(XmlPath(c.path, fixture.names)).value_or("(none)"), c.expected)
            << c.path;
    }
}

TEST(XmlPath, StaysWithinItsContext) {
    Fixture fixture{"reply/person", "name", "//name", ".//name"};
    const XmlDocument document = parsed(kReply, fixture.names);
    const auto people = document.root().select(XmlPath("reply/person", fixture.names));
    EXPECT_EQ(selected(people[1], "name", fixture.names), "Bob Bobby");
    EXPECT_EQ(selected(people[1], ".//name", fixture.names), "Bob Bobby");
    EXPECT_EQ(selected(people[1], "//name", fixture.names), "Ann Bob Bobby inner outer");
    EXPECT_EQ(selected(people[1], ".", fixture.names), "p2");
    EXPECT_EQ(document.root().first(XmlPath("/", fixture.names)), document.root());
}

TEST(XmlPath, RefusesWhatIsNoPath) {
    for (const char* expression : {"",         " ",
                                   "a/",       "a//",
                                   "//",       "/@",
                                   "a|",       "|a",
                                   "a b",      "(a",
                                   "(a|b",     "a)",
                                   "()",       "*",
                                   "..",       "a/..",
                                   "a/.",      "text()",
                                   "p:a",      "a[]",
                                   "a[0]",     "a[-1]",
                                   "a[1",      "a[@b]",
                                   "a[@b=c]",  "a[@b='c]",
                                   "a[b='c']", "a[1][@b='c']",
                                   "a[1][1]",  "@a/b",
                                   "(a|@b)/c", "(a|b)/@c",
                                   "//@a",     "1a",
                                   "-a",       "@",
                                   "@p:",      "a[99999999999]"}) {
        XmlNames names;
        try {
            XmlPath path(expression, names);
            ADD_FAILURE() << expression;
        } catch (const std::invalid_argument& error) {
            EXPECT_NE(std::string(error.what()).find('"' + std::string(expression) + '"'),
                      std::string::npos)
                << error.what();
        }
    }
}

TEST(XmlPath, MatchesNothingWhereThereIsNothing) {
    Fixture fixture{"reply"};
    const XmlDocument document = parsed(kReply, fixture.names);
    const XmlPath later("//name", fixture.names);  // compiled after the document was parsed
    EXPECT_FALSE(document.root().first(later));
    EXPECT_FALSE(document.root().value(XmlPath{}).has_value());

    const XmlNode none;
    EXPECT_FALSE(none);
    EXPECT_EQ(none.text(), "");
    EXPECT_FALSE(none.attribute(1).has_value());
    EXPECT_FALSE(none.first(later));
    std::vector<XmlNode> reused{document.root()};
    none.select(later, reused);
    EXPECT_TRUE(reused.empty());
}

}  // namespace
}  // namespace zr
