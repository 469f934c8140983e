#include "platform/style_sheet.h"

#include <gtest/gtest.h>
#include <libxml/catalog.h>
#include <libxml/globals.h>
#include <libxslt/documents.h>
#include <libxslt/security.h>
#include <libxslt/xsltutils.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <tuple>

#include "platform/error.h"

namespace zr {
namespace {

namespace fs = std::filesystem;

// A folder of style sheets, gone with the test.
class StyleSheetTest : public testing::Test {
  protected:
    StyleSheetTest()
        : folder_(fs::path(testing::TempDir()) / ("sheets " + std::to_string(getpid()))) {
        fs::remove_all(folder_);
        fs::create_directories(folder_);
    }
    ~StyleSheetTest() override { fs::remove_all(folder_); }

    std::string write(const std::string& name, const std::string& content) {
        const fs::path path = folder_ / name;
        std::ofstream(path, std::ios::binary) << content;
        return path.string();
    }

    // A sheet with this inside its xsl:stylesheet.
    std::string write_sheet(const std::string& body, const std::string& name = "sheet.xsl") {
        return write(
            name,
            "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'"
            " xmlns:msxsl='urn:schemas-microsoft-com:xslt'"
            " xmlns:exsl='http://exslt.org/common' xmlns:str='http://exslt.org/strings'"
            " xmlns:date='http://exslt.org/dates-and-times'"
            " exclude-result-prefixes='msxsl exsl str date'>" +
                body + "</xsl:stylesheet>");
    }

    // What the transformation gives, or "error: " and the description.
    std::string transform(const std::string& xml, const std::string& file) {
        try {
            return sheets_.transform(xml, file);
        } catch (const PlatformError& error) {
            EXPECT_NE(error.number(), 0);
            return "error: " + error.description();
        }
    }

    fs::path folder_;
    StyleSheets sheets_;
};

std::string as_text(const std::string& rules) { return "<xsl:output method='text'/>" + rules; }

constexpr const char* kReply =
    "<?xml version='1.0' encoding='UTF-16'?>\n<r>\n  <a>1</a>\n  <a>2</a>\n <b>é€</b></r>";

TEST_F(StyleSheetTest, TakesParametersAsText) {
    const std::string sheet =
        write_sheet(as_text("<xsl:param name='a'>own</xsl:param><xsl:param name='b'>own</xsl:param>"
                            "<xsl:template match='/'><xsl:value-of select=\"concat($a, '|', $b)\"/>"
                            "</xsl:template>"));
    EXPECT_EQ(sheets_.transform("<r/>", sheet), "own|own");
    EXPECT_EQ(sheets_.transform("<r/>", sheet, {{"a", "'it\"s' /r"}, {"unknown", "x"}}),
              "'it\"s' /r|own");
    EXPECT_EQ(sheets_.transform("<r/>", sheet), "own|own");
}

TEST_F(StyleSheetTest, WritesWhatItsOutputAsks) {
    const struct {
        const char* body;
        const char* expected;
    } cases[] = {
        {"<xsl:output method='text' encoding='UTF-16'/>"
         "<xsl:template match='/'><xsl:value-of select='r/b'/>!</xsl:template>",
         "é€!"},
        {"<xsl:output method='text' encoding='ISO-8859-1'/>"
         "<xsl:template match='/'><xsl:value-of select='r/b'/></xsl:template>",
         "é€"},
        {"<xsl:output method='xml' encoding='UTF-16'/>"
         "<xsl:template match='/'><o><xsl:value-of select='r/b'/></o></xsl:template>",
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<o>é€</o>\n"},
        {"<xsl:output method='xml'/>"
         "<xsl:template match='/'><o><xsl:value-of select='r/b'/></o></xsl:template>",
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<o>é€</o>\n"},
        {"<xsl:output method='xml' omit-xml-declaration='yes' indent='yes'/>"
         "<xsl:template match='/'><o><p/><q/></o></xsl:template>",
         "<o>\n  <p/>\n  <q/>\n</o>\n"},
        {"<xsl:output method='html' doctype-public='-//W3C//DTD HTML 4.01//EN'/>"
         "<xsl:template match='/'><html><body><br/>é&amp;</body></html></xsl:template>",
         "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01//EN\">\n"
         "<html><body>\n<br>é&amp;</body></html>\n"},
        {"<xsl:template match='/'><html><xsl:text disable-output-escaping='yes'>&lt;hr></xsl:text>"
         "</html></xsl:template>",
         "<html><hr></html>\n"},
        {"<xsl:output method='text'/><xsl:template match='/'/>", ""},
    };
    for (const auto& c : cases) {
        // A new name each: the clock of the file system may be too coarse to tell them apart.
        const std::string name = "s" + std::to_string(&c - cases) + ".xsl";
        EXPECT_EQ(transform(kReply, write_sheet(c.body, name)), c.expected) << c.body;
    }
}

// A long page is written down while it grows, if it has a body; that shows nowhere.
TEST_F(StyleSheetTest, FoldsLongPages) {
    std::string reply = "<r>";
    for (int i = 0; i < 4000; ++i) reply += "<q n='" + std::to_string(i) + "'>a&lt;&amp;é</q>";
    reply += "</r>";
    const auto page = [&](const std::string& body) {
        const std::string row =
            "<xsl:text>t</xsl:text><xsl:value-of select='.'/><br/><!-- none --><xsl:comment>c"
            "</xsl:comment><xsl:text disable-output-escaping='yes'>&lt;hr></xsl:text>"
            "<a href='x?a={.}&amp;b'><xsl:attribute name='title'><xsl:value-of select='.'/>"
            "</xsl:attribute><b/><xsl:copy-of select='exsl:node-set($kept)/i[1]'/></a><script>x "
            "&lt; y</script>";
        return write_sheet(
            "<xsl:output method='html' indent='no'/><xsl:template match='/'>"
            "<xsl:variable name='kept'><xsl:for-each select='//q'><i><xsl:value-of "
            "select='@n'/></i>"
            "</xsl:for-each></xsl:variable><html><head><title>t</title></head><" +
                body + "><h1/><p><xsl:for-each select='r/q'><u>" + row +
                "</u></xsl:for-each></p><xsl:for-each select='r/q'>" + row +
                "</xsl:for-each><p><xsl:value-of select='count(exsl:node-set($kept)/i)'/></p></" +
                body + "></html></xsl:template>",
            body + ".xsl");
    };
    const std::string folded = transform(reply, page("body"));
    std::string plain = transform(reply, page("bodx"));
    for (std::size_t at; (at = plain.find("bodx")) != std::string::npos;) plain[at + 3] = 'y';
    EXPECT_GT(folded.size(), 1000000U) << folded.substr(0, 300);
    EXPECT_EQ(folded.substr(0, 200), plain.substr(0, 200));
    EXPECT_TRUE(folded == plain);
}

TEST_F(StyleSheetTest, RunsTheFunctionsThatReportsUse) {
    const struct {
        const char* select;
        const char* expected;
    } cases[] = {
        {"count(r/node())", "3"},  // no white space between elements
        {"count(msxsl:node-set($fragment)/x)", "2"},
        {"count(exsl:node-set($fragment)/x)", "2"},
        {"str:padding(3, '-')", "---"},
        {"date:year('2012-06-05')", "2012"},
        {"format-number(1234.5, '#,##0.00')", "1,234.50"},
        {"document('part.xml')/p", "part"},
        {"function-available('msxsl:node-set')", "true"},
    };
    write("part.xml", "<p>part</p>");
    for (const auto& c : cases) {
        const std::string name = "s" + std::to_string(&c - cases) + ".xsl";
        const std::string rules =
            "<xsl:variable name='fragment'><x/><x/></xsl:variable><xsl:template match='/'>"
            "<xsl:value-of select=\"" +
            std::string(c.select) + "\"/></xsl:template>";
        const std::string sheet = write_sheet(as_text(rules), name);
        EXPECT_EQ(transform(kReply, sheet), c.expected) << c.select;
    }
}

TEST_F(StyleSheetTest, CompilesAgainWhenAFileOfItChanges) {
    const auto part = [](const std::string& text) {
        return as_text("<xsl:template name='t'>" + text + "</xsl:template>");
    };
    const std::string main = write_sheet(
        "<xsl:include href='the%20part.xsl'/><xsl:import href='other.xsl'/>", "wrong order.xsl");
    EXPECT_NE(transform(kReply, main).find("error: The style sheet could not be"),
              std::string::npos);

    write_sheet(part("one"), "the part.xsl");
    const std::string sheet = write_sheet(
        "<xsl:include href='the%20part.xsl'/><xsl:template match='/'>"
        "<xsl:call-template name='t'/></xsl:template>",
        "main.xsl");
    EXPECT_EQ(transform(kReply, sheet), "one");
    EXPECT_EQ(transform(kReply, sheet), "one");
    write_sheet(part("three"), "the part.xsl");
    EXPECT_EQ(transform(kReply, sheet), "three");
    fs::last_write_time(folder_ / "the part.xsl",
                        fs::last_write_time(folder_ / "the part.xsl") + std::chrono::hours(1));
    EXPECT_EQ(transform(kReply, sheet), "three");
    fs::remove(folder_ / "the part.xsl");
    EXPECT_NE(transform(kReply, sheet).find("the part.xsl: No such file"), std::string::npos);
    write_sheet(part("four"), "the part.xsl");
    EXPECT_EQ(transform(kReply, sheet), "four");
}

TEST_F(StyleSheetTest, SaysWhatWasWrong) {
    testing::internal::CaptureStderr();
    const std::string good = write_sheet("<xsl:template match='/'>x</xsl:template>", "good.xsl");
    auto sheet = [&, count = 0](const std::string& body) mutable {
        return write_sheet(body, "bad" + std::to_string(++count) + ".xsl");
    };
    const auto rule = [](const std::string& body) {
        return "<xsl:template match='/'>" + body + "</xsl:template>";
    };
    const struct {
        std::string xml;
        std::string file;
        std::string expected;
    } cases[] = {
        {kReply, (folder_ / "none.xsl").string(),
         "The style sheet could not be opened: none.xsl: No such file or directory."},
        {kReply, folder_.string(), "The style sheet could not be opened: "},
        {kReply, write("broken.xsl", "<a>\n</b>"),
         "The style sheet is not well-formed: Opening and ending tag mismatch: a line 1 and b "
         "(broken.xsl, line 2)."},
        {kReply, write("plain.xsl", "<a/>"), "The style sheet could not be compiled: "},
        {kReply, sheet(rule("<xsl:value-of select='1 +'/>")),
         "The style sheet could not be compiled: Invalid expression"},
        {kReply, sheet(rule("<xsl:value-of select='unknown()'/>")),
         "The style sheet could not be run: "},
        {kReply, sheet(rule("<xsl:value-of select='$unknown'/>")),
         "The style sheet could not be run: "},
        {kReply, sheet(rule("<xsl:element name='{r/b} '/>")), "The style sheet could not be run: "},
        {kReply,
         sheet(rule("<xsl:message terminate='yes'><xsl:value-of select='r/b'/>"
                    "</xsl:message>")),
         "The style sheet stopped the transformation."},
        {kReply,
         sheet(rule("<xsl:call-template name='x'/>") +
               "<xsl:template name='x'><xsl:call-template name='x'/></xsl:template>"),
         "The style sheet could not be run: "},
        {kReply, sheet("<xsl:include href='http://127.0.0.1:9/x.xsl'/>"), "Only files can be read"},
        {kReply, sheet(rule("<xsl:value-of select=\"document('http://127.0.0.1:9/x')\"/>")),
         "The style sheet could not be run: Network file read refused ("},
        {kReply, sheet(rule("<xsl:document href='written.xml'><x/></xsl:document>")),
         "The style sheet could not be run: "},
        {kReply, sheet(rule("<xsl:document href='http://127.0.0.1:9/{r/b}'><x/></xsl:document>")),
         "The style sheet could not be run: "},
        {kReply, sheet(rule("<xsl:value-of select='str:tokenize(r/b, 1, 2, 3)'/>")),
         "The style sheet could not be run: "},
        {"<r>", good, "The XML could not be parsed: Premature end of data in tag r line 1"},
        {"", good, "The XML could not be parsed: Document is empty"},
        {"<!DOCTYPE r [<!ENTITY e 'x'>]><r>&e;</r>", good,
         "The XML could not be parsed: The document type declaration has an internal subset."},
    };
    for (const auto& c : cases) {
        const std::string result = transform(c.xml, c.file);
        EXPECT_EQ(result.find("error: "), 0U) << result;
        EXPECT_NE(result.find(c.expected), std::string::npos) << result;
        EXPECT_EQ(result.find("é€"), std::string::npos) << result;
    }
    EXPECT_FALSE(fs::exists(folder_ / "written.xml"));
    EXPECT_FALSE(fs::exists("written.xml"));
    // A message is no failure, and the library is still in working order.
    EXPECT_EQ(transform(kReply, sheet(as_text(rule("<xsl:message>m</xsl:message>x")))), "x");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(StyleSheetTest, BoundsTheEntitiesOfASheet) {
    const auto with = [&](const std::string& declarations, const std::string& text,
                          const std::string& name) {
        return write(name, "<!DOCTYPE xsl:stylesheet [" + declarations +
                               "]><xsl:stylesheet version='1.0' "
                               "xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>" +
                               as_text("<xsl:template match='/'>" + text) +
                               "</xsl:template></xsl:stylesheet>");
    };
    EXPECT_EQ(transform(kReply, with("<!ENTITY nbsp '&#160;'>", "a&nbsp;b", "nbsp.xsl")),
              "a\u00A0b");
    const std::string external = "<!ENTITY e SYSTEM 'secret.txt'>";
    write("secret.txt", "secret");
    EXPECT_NE(transform(kReply, with(external, "&e;", "external.xsl")).find("declares an entity"),
              std::string::npos);
    std::string bomb = "<!ENTITY e0 'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx'>";
    for (int i = 1; i < 12; ++i) {
        bomb += "<!ENTITY e" + std::to_string(i) + " '";
        for (int j = 0; j < 10; ++j) bomb += "&e" + std::to_string(i - 1) + ";";
        bomb += "'>";
    }
    EXPECT_NE(transform(kReply, with(bomb, "&e11;", "bomb.xsl")).find("not well-formed"),
              std::string::npos);
}

TEST_F(StyleSheetTest, BoundsWhatASheetUses) {
    std::string reply = "<r>";
    for (int i = 0; i < 5000; ++i) reply += "<q><w>" + std::to_string(i) + "0</w></q>";
    reply += "</r>";
    const auto doubled = [](const std::string& first, const std::string& next, int times) {
        std::string made = "<xsl:variable name='v0'>" + first + "</xsl:variable>";
        for (int i = 1; i <= times; ++i) {
            const std::string before = "$v" + std::to_string(i - 1);
            std::string body = next;
            for (std::size_t at; (at = body.find('$')) != std::string::npos;) {
                body.replace(at, 1, "\x01" + before.substr(1));
            }
            std::replace(body.begin(), body.end(), '\x01', '$');
            made += "<xsl:variable name='v" + std::to_string(i) + "'" + body + "</xsl:variable>";
        }
        return made + "<xsl:copy-of select='$v" + std::to_string(times) + "'/>";
    };
    const std::string tree = "It makes a larger tree than it may.";
    const std::string text = "It makes more text than it may.";
    const std::string time = "It takes longer than it may.";
    const struct {
        std::string body;
        std::string expected;
    } cases[] = {
        {"<xsl:value-of select='count(//*[count(//*[count(//*[count(//*)>0])>0])>0])'/>",
         "peration limit exceeded"},
        {"<xsl:for-each select='//*'><xsl:sort select='count(//*)'/></xsl:for-each>",
         "peration limit exceeded"},
        {doubled("<a/>", "><xsl:copy-of select='$'/><xsl:copy-of select='$'/>", 30), tree},
        {doubled("0123456789", " select='concat($, $)'>", 34), text},
        {doubled("0123456789", "><xsl:value-of select='$'/><xsl:value-of select='$'/>", 34), text},
        {"<xsl:for-each select='//*'><xsl:number level='any' count='*[//*]'/></xsl:for-each>",
         "peration limit exceeded"},
        {"<xsl:for-each select='//*'><xsl:for-each select='//*'><a b='{/}'/></xsl:for-each>"
         "</xsl:for-each>",
         time},
        {doubled("0123456789", " select='concat($, $)'>", 18) +
             "<xsl:for-each select='//q[position() &lt; 30]'><a><xsl:value-of select='$v18'/></a>"
             "</xsl:for-each>",
         "It writes more than 67108864 bytes."},
        {"<xsl:variable name='long'><xsl:for-each select='//q'><xsl:value-of select='.'/>"
         "</xsl:for-each></xsl:variable><html><body><xsl:for-each select='//q'><p><b/>"
         "<xsl:value-of select='$long'/></p></xsl:for-each></body></html>",
         "It writes more than 67108864 bytes."},
    };
    for (const auto& c : cases) {
        const std::string name = "bound" + std::to_string(&c - cases) + ".xsl";
        const std::string sheet =
            write_sheet("<xsl:output method='html' indent='no'/><xsl:template match='/'>" + c.body +
                            "</xsl:template>",
                        name);
        const std::string result = transform(reply, sheet);
        EXPECT_EQ(result.find("error: The style sheet could not be run: "), 0U) << c.body;
        EXPECT_NE(result.find(c.expected), std::string::npos) << c.body << result.substr(0, 300);
    }
}

TEST_F(StyleSheetTest, ReadsNeighboursOnly) {
    fs::create_directories(folder_ / "in/deep");
    write("outside.xml", "<p>outside</p>");
    write("in/beside.xml", "<p>beside</p>");
    write("in/deep/below.xml", "<p>below</p>");
    fs::create_symlink(folder_ / "outside.xml", folder_ / "in/link.xml");
    const std::string refused = "Only files beside the style sheet can be read";
    const struct {
        std::string address;
        std::string expected;
    } cases[] = {
        {"beside.xml", "beside"},
        {"deep/../deep/below.xml", "below"},
        {"../in/beside.xml", "beside"},
        {"none.xml", ""},
        {"../outside.xml", refused},
        {"link.xml", refused},
        {(folder_ / "outside.xml").string(), refused},
        {"file://" + (folder_ / "outside.xml").string(), refused},
        {"/etc/passwd", refused},
    };
    for (const auto& c : cases) {
        const std::string name = "in/s" + std::to_string(&c - cases) + ".xsl";
        std::string address = c.address;
        for (std::size_t at; (at = address.find(' ')) != std::string::npos;) {
            address.replace(at, 1, "%20");
        }
        const std::string sheet =
            write_sheet(as_text("<xsl:template match='/'><xsl:value-of select=\"document('" +
                                address + "')\"/></xsl:template>"),
                        name);
        const std::string result = transform(kReply, sheet);
        if (c.expected == refused) {
            EXPECT_NE(result.find(refused), std::string::npos) << c.address << result;
        } else {
            EXPECT_EQ(result, c.expected) << c.address;
        }
    }
    const std::string part = as_text("<xsl:template match='/'>part</xsl:template>");
    write_sheet(part, "outside.xsl");
    write_sheet(part, "in/deep/below.xsl");
    fs::create_symlink("../outside.xsl", folder_ / "in/link.xsl");
    for (const std::string element : {"<xsl:include href='", "<xsl:import href='"}) {
        const auto using_sheet = [&](const std::string& address) {
            return transform(kReply, write_sheet(element + address + "'/>", "in/whole.xsl"));
        };
        EXPECT_EQ(using_sheet("deep/below.xsl"), "part");
        EXPECT_NE(using_sheet("../outside.xsl").find(refused), std::string::npos);
        EXPECT_NE(using_sheet("link.xsl").find(refused), std::string::npos);
    }
}

xmlDocPtr hosts_loader(const xmlChar*, xmlDictPtr, int, void*, xsltLoadType) { return nullptr; }
void hosts_errors(void*, const char*, ...) {}
void hosts_structured_errors(void*, xmlErrorPtr) {}
void hosts_nodes(xmlNodePtr) {}

TEST_F(StyleSheetTest, LeavesTheLibrariesAsTheHostHasThem) {
    write("part.xml", "<p>part</p>");
    const std::string sheet = write_sheet(
        as_text("<xsl:template match='/'><xsl:value-of select=\"document('part.xml')\"/>"
                "</xsl:template>"));
    const std::string broken = write_sheet("<xsl:template match='1 +'/>", "broken.xsl");
    const auto state = [] {
        return std::make_tuple(
            xsltDocDefaultLoader, xsltGenericError, xsltGenericErrorContext, xmlStructuredError,
            xmlStructuredErrorContext, xmlGenericError, xmlGenericErrorContext,
            xmlRegisterNodeDefaultValue, xmlDeregisterNodeDefaultValue, xmlKeepBlanksDefaultValue,
            xmlSubstituteEntitiesDefaultValue, xmlLoadExtDtdDefaultValue,
            xmlDoValidityCheckingDefaultValue, xmlLineNumbersDefaultValue,
            xmlGetExternalEntityLoader(), xmlCatalogGetDefaults(), xsltGetDefaultSecurityPrefs());
    };
    const auto use_and_compare = [&] {
        const auto before = state();
        EXPECT_EQ(transform(kReply, sheet), "part");
        EXPECT_EQ(transform(kReply, broken).find("error: "), 0U);
        EXPECT_TRUE(state() == before);
    };
    use_and_compare();
    const auto original = state();
    int context = 0;
    // As a host does that sets its own when ours were there already.
    xsltSetLoaderFunc(hosts_loader);
    xsltSetGenericErrorFunc(&context, hosts_errors);
    xmlSetStructuredErrorFunc(&context, hosts_structured_errors);
    xmlSetGenericErrorFunc(&context, hosts_errors);
    xmlRegisterNodeDefault(hosts_nodes);
    use_and_compare();
    xsltSetLoaderFunc(std::get<0>(original));
    xsltSetGenericErrorFunc(std::get<2>(original), std::get<1>(original));
    xmlSetStructuredErrorFunc(std::get<4>(original), std::get<3>(original));
    xmlSetGenericErrorFunc(std::get<6>(original), std::get<5>(original));
    xmlRegisterNodeDefault(nullptr);
}

}  // namespace
}  // namespace zr
