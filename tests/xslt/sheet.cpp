#include "xslt/sheet.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <vector>

#include "facade/zr_credit_bureau.h"
#include "platform/style_sheet.h"
#include "xslt/page.h"

namespace zr::sheet {
namespace {

const std::string kRoot = std::string(ZR_TEST_DATA) + "/..";

std::string upper_case(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
    });
    return text;
}

// Letters in one case, words apart, amounts without their signs.
std::string comparable(std::string text) {
    text.erase(
        std::remove_if(text.begin(), text.end(), [](char c) { return c == '$' || c == ','; }),
        text.end());
    std::replace(text.begin(), text.end(), '-', ' ');
    return upper_case(std::move(text));
}

// The parts of a line's description that a page shows in one piece each.
std::vector<std::string> pieces(std::string description) {
    description = std::regex_replace(description, std::regex("(\\d)\\.00\\b(?!%)"), "$1");
    // A moment of day, and a text with its own number before it, are written with a blank.
    description = std::regex_replace(description, std::regex("(\\d-\\d\\d)T(\\d)"), "$1 $2");
    description = std::regex_replace(description, std::regex("\\b(\\d+): \\1"), "$1: ");
    description =
        std::regex_replace(description,
                           std::regex("\r?\n| - |\\(Reference |Client Reference |Corrections:|Date "
                                      "of Birth |barcode |: | for |[();\"]"),
                           "\n");
    std::vector<std::string> result;
    std::istringstream lines(description);
    for (std::string line; std::getline(lines, line);) {
        line.erase(0, std::min(line.find_first_not_of(' '), line.size()));
        line.erase(line.find_last_not_of(' ') + 1);
        if (!line.empty()) result.push_back(line);
    }
    return result;
}

}  // namespace

std::string example(const std::string& country, const std::string& name) {
    std::ifstream file(kRoot + "/examples/vedaxml_" + country + "_" + name + ".xml",
                       std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string render(const std::string& country, const std::string& reply) {
    static StyleSheets sheets;
    return sheets.transform(reply, kRoot + "/xslt/vedaxml_" + country + ".xsl");
}

std::string reply_with(const std::string& data, const std::string& code) {
    return "<BCAmessage><BCAservices><BCAservice><BCAservice-code>" + code +
           "</BCAservice-code><BCAservice-data>" + data +
           "</BCAservice-data></BCAservice></BCAservices></BCAmessage>";
}

std::string sections(const std::string& html) {
    std::string result;
    for (const page::Heading& heading : page::headings(html)) {
        result += std::string(static_cast<std::size_t>(heading.level), '#') + ' ' +
                  heading.text.substr(0, heading.text.find(" <")) + '\n';
    }
    return result;
}

void expect_whole_page(const std::string& country, const std::string& name) {
    SCOPED_TRACE(country + ' ' + name);
    const std::string html = render(country, example(country, name));
    EXPECT_TRUE(html.starts_with("<!DOCTYPE html")) << html.substr(0, 80);
    EXPECT_EQ(page::unbalanced(html), "");
    EXPECT_NE(html.find("<html lang=\"en-" + upper_case(country) + "\">"), std::string::npos);
    for (const char* forbidden : {"<script", "<link", "<img", "<iframe", "http://", "https://",
                                  " src=", "url(", "@import", " onclick", "NaN", "&amp;lt;"}) {
        EXPECT_EQ(html.find(forbidden), std::string::npos) << forbidden;
    }
    const std::regex link("href=\"#([^\"]*)\"");
    for (std::sregex_iterator each(html.begin(), html.end(), link), end; each != end; ++each) {
        const std::string id = " id=\"" + (*each)[1].str() + "\"";
        const auto target = html.find(id);
        EXPECT_NE(target, std::string::npos) << id;
        EXPECT_EQ(html.find(id, target + 1), std::string::npos) << id;
    }
    int last = 0;
    for (const page::Heading& heading : page::headings(html)) {
        EXPECT_LE(heading.level, last + 1) << heading.text;
        EXPECT_FALSE(heading.text.empty());
        last = heading.level;
    }
}

void expect_every_line(const std::string& country, const std::string& name,
                       const std::string& product) {
    ZRCreditBureau bureau;
    ASSERT_TRUE(bureau.Initialise(upper_case(country)));
    bureau.DateFormat("d mmm yyyy");
    const auto request = bureau.CreateRequest();
    request->ServiceName("VedaXML" + upper_case(country));
    request->ProductId(product);
    const std::string reply = example(country, name);
    ASSERT_TRUE(bureau.BuildResponse(*request, DateTime::ymd(2012, 6, 15), reply))
        << bureau.ErrorMessage();

    const std::string shown = comparable(page::plain_text(render(country, reply)));
    for (const ResponseElement& line : request->Response()->ResponseElements()) {
        const std::string_view group = line.ResponseGroup();
        if (group == "Statistics" || group == "Quick Summary") continue;
        const std::string_view label = line.ResponseName();
        if (label == "Service" || label == "Date Created") continue;
        if (label == "Account Opened") continue;  // text to the component, a date on the page
        std::vector<std::string> parts = pieces(std::string(line.ResponseDescription()));
        const std::string name_of_line(label);
        std::smatch date;
        if (std::regex_search(name_of_line, date, std::regex("\\d+ [A-Z][a-z][a-z] \\d{4}"))) {
            parts.push_back(date.str());
        }
        for (std::string piece : parts) {
            piece = comparable(piece);
            page::replace_all(piece, "SEE ALSO POSSIBLE MATCH BELOW", "POSSIBLE MATCH");
            EXPECT_NE(shown.find(piece), std::string::npos)
                << group << " | " << line.ResponseSubGroup() << " | " << label << ": " << piece;
        }
    }
}

void expect_no_markup(const std::string& country, std::initializer_list<const char*> names) {
    const std::string hostile = "&lt;img src=x onerror=1&gt;&amp;&quot;";
    for (const char* name : names) {
        std::string reply = example(country, name);
        reply = std::regex_replace(reply, std::regex(">[^<>\n]+</"), ">" + hostile + "</");
        EXPECT_NE(render(country, reply).find("&lt;img src=x"), std::string::npos) << name;
        EXPECT_EQ(render(country, reply).find("<img"), std::string::npos) << name;

        reply = std::regex_replace(reply, std::regex(" ([a-z-]+)=\"[^\"]+\""),
                                   " $1=\"" + hostile + "\"");
        reply.erase(0, reply.find("<BCAmessage"));
        const std::string html = render(country, reply);
        EXPECT_EQ(html.find("<img"), std::string::npos) << name;
        EXPECT_EQ(page::unbalanced(html), "") << name;
    }
}

}  // namespace zr::sheet
