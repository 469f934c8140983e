// The pages that the style sheet for VedaXML Australia makes.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "facade/zr_credit_bureau.h"
#include "platform/style_sheet.h"
#include "services/vedaxml_au/street_types.h"
#include "xslt/page.h"

namespace zr {
namespace {

const std::string kRoot = std::string(ZR_TEST_DATA) + "/..";

std::string example(const std::string& name) {
    std::ifstream file(kRoot + "/examples/vedaxml_au_" + name + ".xml", std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string render(const std::string& reply) {
    static StyleSheets sheets;
    return sheets.transform(reply, kRoot + "/xslt/vedaxml_au.xsl");
}

std::string text_of_page(const std::string& reply) { return page::plain_text(render(reply)); }

// A reply with this in its response.
std::string reply_with(const std::string& response, const std::string& code = "BCA001") {
    return "<BCAmessage><BCAservices><BCAservice><BCAservice-code>" + code +
           "</BCAservice-code><BCAservice-data>" + response +
           "</BCAservice-data></BCAservice></BCAservices></BCAmessage>";
}

// A reply with one matched file that holds this, and this after the file.
std::string report_with(const std::string& match, const std::string& after = "") {
    return reply_with("<response><enquiry-report><primary-match>" + match + "</primary-match>" +
                      after + "</enquiry-report></response>");
}

std::string lower_case_words(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c == '-' ? ' ' : c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
    });
    return text;
}

// The parts of a line's description that a page shows in one piece each.
std::vector<std::string> pieces(std::string description) {
    description = std::regex_replace(description, std::regex("\\.00\\b"), "");
    description = std::regex_replace(description, std::regex("\r?\n| - |\\(Reference |[()]"), "\n");
    std::vector<std::string> result;
    std::istringstream lines(description);
    for (std::string line; std::getline(lines, line);) {
        line.erase(line.find_last_not_of(' ') + 1);
        if (!line.empty()) result.push_back(line);
    }
    return result;
}

class ExamplePage : public testing::TestWithParam<const char*> {};

TEST_P(ExamplePage, StandsAlone) {
    const std::string html = render(example(GetParam()));
    EXPECT_TRUE(html.starts_with("<!DOCTYPE html")) << html.substr(0, 80);
    EXPECT_EQ(page::unbalanced(html), "");
    EXPECT_NE(html.find("<html lang=\"en-AU\">"), std::string::npos);
    for (const char* forbidden : {"<script", "<link", "<img", "<iframe", "http://", "https://",
                                  " src=", "url(", "@import", " onclick", "NaN", "&amp;lt;"}) {
        EXPECT_EQ(html.find(forbidden), std::string::npos) << forbidden;
    }
}

TEST_P(ExamplePage, HasHeadingsInOrder) {
    int last = 0;
    for (const page::Heading& heading : page::headings(render(example(GetParam())))) {
        EXPECT_LE(heading.level, last + 1) << heading.text;
        EXPECT_FALSE(heading.text.empty());
        last = heading.level;
    }
}

INSTANTIATE_TEST_SUITE_P(VedaXmlAu, ExamplePage,
                         testing::Values("clean", "adverse", "company_search", "refused"),
                         [](const auto& example) { return example.param; });

TEST(VedaXmlAuSheet, ShowsEverySection) {
    std::string sections;
    for (const page::Heading& heading : page::headings(render(example("adverse")))) {
        sections += std::string(static_cast<std::size_t>(heading.level), '#') + ' ' +
                    heading.text.substr(0, heading.text.find(" <")) + '\n';
    }
    for (const char* section :
         {"# Bruno Horace O'Sample", "## Overview", "## Person", "### Addresses", "### Employment",
          "## Consumer credit file\n### Cross references\n### Defaults\n#### Default 1",
          "#### Default 3\n### Notes\n### Current credit providers\n### Enquiries\n"
          "### File messages\n## Commercial credit file\n### Cross references\n### Defaults\n"
          "#### Default 1\n### Notes\n### Current credit providers\n### Enquiries\n"
          "### File messages\n## Public data\n### Directorships\n#### Directorship 1",
          "### Disqualified directorships", "### Proprietorships", "### Bankruptcies",
          "### Court actions", "### Public file messages", "## Summary data", "## Score",
          "### Risk factors",
          "## Possible match\n### Person\n#### Addresses\n#### Employment\n"
          "### Consumer credit file\n#### Defaults\n##### Default 1\n#### Enquiries\n"
          "### Public data\n#### Court actions\n##### Court action 1\n"}) {
        EXPECT_NE(sections.find(section), std::string::npos) << section << "\nin\n" << sections;
    }
}

TEST(VedaXmlAuSheet, ShowsWhateverTheReportLinesShow) {
    for (const char* name : {"clean", "adverse"}) {
        ZRCreditBureau bureau;
        ASSERT_TRUE(bureau.Initialise("AU"));
        bureau.DateFormat("d mmm yyyy");
        const auto request = bureau.CreateRequest();
        request->ServiceName("VedaXMLAU");
        request->ProductId("consumer-enquiry");
        const std::string reply = example(name);
        ASSERT_TRUE(bureau.BuildResponse(*request, DateTime::ymd(2012, 6, 15), reply))
            << bureau.ErrorMessage();

        const std::string shown = lower_case_words(text_of_page(reply));
        for (const ResponseElement& line : request->Response()->ResponseElements()) {
            const std::string_view group = line.ResponseGroup();
            if (group == "Statistics" || group == "Quick Summary") continue;
            if (line.ResponseName() == "Service" || line.ResponseName() == "Date Created") continue;
            for (std::string piece : pieces(std::string(line.ResponseDescription()))) {
                piece = lower_case_words(piece);
                page::replace_all(piece, "see also possible match below", "possible match");
                EXPECT_NE(shown.find(piece), std::string::npos)
                    << group << " | " << line.ResponseSubGroup() << " | " << line.ResponseName()
                    << ": " << piece;
            }
        }
    }
}

TEST(VedaXmlAuSheet, LetsNothingOfTheReplyBecomeMarkup) {
    const std::string hostile = "&lt;img src=x onerror=1&gt;&amp;&quot;";
    for (const char* name : {"adverse", "company_search", "refused"}) {
        std::string reply = example(name);
        reply = std::regex_replace(reply, std::regex(">[^<>\n]+</"), ">" + hostile + "</");
        EXPECT_NE(render(reply).find("&lt;img src=x"), std::string::npos) << name;
        EXPECT_EQ(render(reply).find("<img"), std::string::npos) << name;

        reply = std::regex_replace(reply, std::regex(" ([a-z-]+)=\"[^\"]+\""),
                                   " $1=\"" + hostile + "\"");
        reply.erase(0, reply.find("<BCAmessage"));
        const std::string html = render(reply);
        EXPECT_EQ(html.find("<img"), std::string::npos) << name;
        EXPECT_EQ(page::unbalanced(html), "") << name;
    }
    // Elements inside values are read as their text; unknown elements are passed over.
    const std::string html = render(report_with(
        "<individual><individual-name><family-name><script>alert(1)</script></family-name>"
        "</individual-name><unknown><script>alert(2)</script></unknown></individual>"));
    EXPECT_EQ(html.find("<script"), std::string::npos);
    EXPECT_NE(html.find("alert(1)"), std::string::npos);
    EXPECT_EQ(html.find("alert(2)"), std::string::npos);
}

TEST(VedaXmlAuSheet, KnowsEveryStreetType) {
    std::string addresses;
    for (const CodeRow& row : kAustralianStreetTypes) {
        addresses += "<address><street-number>1</street-number><street-name>" +
                     std::string(row.code) + "</street-name><street-type code=\"" +
                     std::string(row.code) + "\"/><suburb>END</suburb></address>";
    }
    addresses += "<address><street-name>A</street-name><street-type code=\"zz\"/></address>";
    const std::string shown =
        text_of_page(report_with("<individual>" + addresses + "</individual>"));
    for (const CodeRow& row : kAustralianStreetTypes) {
        const std::string address =
            " 1 " + std::string(row.code) + " " + std::string(row.description) + " END ";
        EXPECT_NE(shown.find(address), std::string::npos) << address;
    }
    EXPECT_NE(shown.find(" A zz "), std::string::npos);
}

TEST(VedaXmlAuSheet, WritesDatesAndAmountsForPeople) {
    struct Case {
        const char* given;
        const char* shown;
    };
    for (const Case& each : {Case{"2012-06-05", "5 Jun 2012"},
                             {"2012-12-31T10:00:00", "31 Dec 2012"},
                             {"2012-13-05", "2012-13-05"},
                             {"2012-06-00", "2012-06-00"},
                             {"2012-06-051", "2012-06-051"},
                             {"5/06/2012", "5/06/2012"}}) {
        const std::string html =
            render(report_with("<individual><date-of-birth>" + std::string(each.given) +
                               "</date-of-birth></individual>"));
        EXPECT_NE(page::plain_text(page::between(html, "Date of birth", "</dd>"))
                      .find(" " + std::string(each.shown) + " "),
                  std::string::npos)
            << each.given;
    }
    for (const Case& each : {Case{"15000", "$15,000"},
                             {"1384.5", "$1,384.50"},
                             {"1234567890.25", "$1,234,567,890.25"},
                             {"0", "$0"},
                             {"-1200", "-$1,200"},
                             {"1e5", "1e5"},
                             {"12345678901234567", "12345678901234567"},
                             {"unknown", "unknown"}}) {
        const std::string html =
            render(report_with("", "<summary-data><summary name='Sum' type='amount'>" +
                                       std::string(each.given) + "</summary></summary-data>"));
        EXPECT_EQ(page::between(html, "<dt>Sum</dt><dd>", "</dd>"), each.shown);
    }
}

TEST(VedaXmlAuSheet, SaysWhatItKnowsAndNoMore) {
    const std::string empty_files =
        "<individual-consumer-credit-file/>"
        "<individual-public-data-file/>";
    const auto total = [](const std::string& name, const std::string& value) {
        return "<summary-data><summary name='" + name + "' type='count'>" + value +
               "</summary></summary-data>";
    };
    struct Case {
        std::string reply;
        std::string said;
        bool clean = false;
    };
    const Case cases[] = {
        {report_with(empty_files), "No adverse records", true},
        {report_with("<individual-consumer-credit-file><credit-enquiry/>"
                     "</individual-consumer-credit-file>"),
         "Looked at: consumer credit file.", true},
        {report_with(empty_files, total("Defaults", "0")), "No adverse records", true},
        {report_with(empty_files, total("Defaults", "2")), "but the summary data speaks of some"},
        {report_with("<individual/>"), "holds no credit file and no public data"},
        {report_with("<individual-commercial-credit-file><default/>"
                     "</individual-commercial-credit-file>"),
         "Default 1 No details given."},
        {report_with("<individual-public-data-file><court-action/><bankruptcy/>"
                     "</individual-public-data-file>"),
         "2 adverse records"},
        {reply_with("<response><enquiry-report/></response>"), "has no matching file"},
        {reply_with("<response/>", "BCA020"), "No companies found"},
        {reply_with("<response/>"), "neither a credit report nor an error"},
        {"<other/>", "neither a credit report nor an error"},
        {reply_with("<BCAerror type='security'><BCAerror-code>7</BCAerror-code>"
                    "<BCAerror-description>No such user</BCAerror-description></BCAerror>"),
         "No such user 7 Security"},
    };
    for (const Case& each : cases) {
        const std::string shown = text_of_page(each.reply);
        EXPECT_NE(shown.find(each.said), std::string::npos) << each.said << "\nin\n" << shown;
        EXPECT_EQ(shown.find(" No adverse records Looked at") != std::string::npos, each.clean)
            << shown;
    }
}

TEST(VedaXmlAuSheet, CountsAsTheStatisticsDo) {
    const std::string shown = text_of_page(example("adverse"));
    for (const char* row :
         {" 11 adverse records ", " Defaults 4 2 $24,982.75 $10,418.60 ",
          " Judgements 2 1 $20,480.40 $4,230 ",
          " Court writs and summonses 1 1 $9,034.10 $9,034.10 ", " Bankruptcies 2 1 ",
          " Disqualified as director until 1 May 2013 ", " Default 1 Not paid Account type ",
          " Default 2 Account type ", " Bankruptcy 1 Undischarged ", " Bankruptcy 2 Type "}) {
        EXPECT_NE(shown.find(row), std::string::npos) << row << "\nin\n" << shown;
    }
}

}  // namespace
}  // namespace zr
