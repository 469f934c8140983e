// The pages that the style sheet for VedaXML Australia makes.
#include <gtest/gtest.h>

#include <string>

#include "xslt/page.h"
#include "xslt/sheet.h"

namespace zr::au_sheet {
namespace {

using sheet::reply_with;

std::string example(const std::string& name) { return sheet::example("au", name); }

std::string render(const std::string& reply) { return sheet::render("au", reply); }

std::string text_of_page(const std::string& reply) { return page::plain_text(render(reply)); }

// A reply with one matched file that holds this, and this after the file.
std::string report_with(const std::string& match, const std::string& after = "") {
    return reply_with("<response><enquiry-report><primary-match>" + match + "</primary-match>" +
                      after + "</enquiry-report></response>");
}

TEST(VedaXmlAuSheet, MakesWholePages) {
    for (const char* name : {"clean", "adverse", "company_search", "refused"}) {
        sheet::expect_whole_page("au", name);
    }
}

TEST(VedaXmlAuSheet, ShowsEverySection) {
    const std::string sections = sheet::sections(render(example("adverse")));
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
        sheet::expect_every_line("au", name, "consumer-enquiry");
    }
}

TEST(VedaXmlAuSheet, LetsNothingOfTheReplyBecomeMarkup) {
    sheet::expect_no_markup("au", {"adverse", "company_search", "refused"});
    // Elements inside values are read as their text; unknown elements are passed over.
    const std::string html = render(report_with(
        "<individual><individual-name><family-name><script>alert(1)</script></family-name>"
        "</individual-name><unknown><script>alert(2)</script></unknown></individual>"));
    EXPECT_EQ(html.find("<script"), std::string::npos);
    EXPECT_NE(html.find("alert(1)"), std::string::npos);
    EXPECT_EQ(html.find("alert(2)"), std::string::npos);
}

TEST(VedaXmlAuSheet, KnowsEveryCode) {
    sheet::expect_codes(
        "au", "consumer-enquiry",
        {{"StreetTypes",
          "<primary-match><individual><address><street-name>A</street-name><street-type "
          "code='CODE'/><suburb>END</suburb></address></individual></primary-match>"},
         {"OrganisationTypes",
          "<primary-match><individual-public-data-file><directorship><organisation>"
          "<organisation-type code='CODE'/></organisation></directorship>"
          "</individual-public-data-file></primary-match>"}});
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
    for (const Case& each : {Case{"15000", "$15,000.00"},
                             {"1384.5", "$1,384.50"},
                             {"1234567890.25", "$1,234,567,890.25"},
                             {"0", "$0.00"},
                             {"-1200", "-$1,200.00"},
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
         "Looked for: defaults.", true},
        {report_with(empty_files, total("Defaults", "0")), "No adverse records", true},
        {report_with(empty_files, total("Defaults", "2")), "but the bureau's totals speak of some"},
        {report_with("<individual/>"), "holds no credit file and no public data"},
        {report_with("<individual-commercial-credit-file><default/>"
                     "</individual-commercial-credit-file>"),
         "Default 1 No details given."},
        {report_with("<individual-public-data-file><court-action/><bankruptcy/>"
                     "</individual-public-data-file>"),
         "2 adverse records, 1 open, $0.00 owed"},
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
        EXPECT_EQ(shown.find(" No adverse records Looked for") != std::string::npos, each.clean)
            << shown;
    }
}

TEST(VedaXmlAuSheet, CountsAsTheStatisticsDo) {
    const std::string shown = text_of_page(example("adverse"));
    for (const char* row :
         {" 11 adverse records, 5 open, $23,682.70 owed ", " Defaults 4 2 $24,982.75 $10,418.60 ",
          " Judgements 2 1 $20,480.40 $4,230.00 ", " Writs and summonses 1 1 $9,034.10 $9,034.10 ",
          " Bankruptcies 2 1 ", " Disqualified as director until 1 May 2013 ",
          " Default 1 Not paid Account type ", " Default 2 Account type ",
          " Bankruptcy 1 Undischarged ", " Bankruptcy 2 Type "}) {
        EXPECT_NE(shown.find(row), std::string::npos) << row << "\nin\n" << shown;
    }
}

}  // namespace
}  // namespace zr::au_sheet
