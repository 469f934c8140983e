// The pages that the style sheet for VedaXML New Zealand makes.
#include <gtest/gtest.h>

#include <string>

#include "xslt/page.h"
#include "xslt/sheet.h"

namespace zr::nz_sheet {
namespace {

std::string render(const std::string& reply) { return sheet::render("nz", reply); }

std::string text_of_page(const std::string& reply) { return page::plain_text(render(reply)); }

std::string with_report(const std::string& report) {
    return sheet::reply_with("<response><enquiry-report>" + report +
                             "</enquiry-report></response>");
}

std::string with_company(const std::string& files) {
    return with_report("<company><company/>" + files + "</company>");
}

TEST(VedaXmlNzSheet, MakesWholePages) {
    sheet::expect_whole_page("nz", "person");
    sheet::expect_whole_page("nz", "company_directors");
}

TEST(VedaXmlNzSheet, ShowsWhateverTheReportLinesShow) {
    sheet::expect_every_line("nz", "person", "enquiry_individual");
    sheet::expect_every_line("nz", "company_directors", "enquiry_company_with_directors");
}

TEST(VedaXmlNzSheet, LetsNothingOfTheReplyBecomeMarkup) {
    sheet::expect_no_markup("nz", {"person", "company_directors"});
}

TEST(VedaXmlNzSheet, ShowsEverySection) {
    const std::string person = sheet::sections(render(sheet::example("nz", "person")));
    const std::string company = sheet::sections(render(sheet::example("nz", "company_directors")));
    struct Case {
        const std::string& shown;
        const char* section;
    };
    for (const Case& each : {
             Case{person,
                  "# Ginevra Zoë O'Sample\n## Overview\n## Person\n### Addresses\n"
                  "### Aliases\n## Identity verification\n### Property ownership\n"
                  "### White pages\n### Driver licence\n## Credit file\n### Defaults\n"
                  "#### Default 3560033\n#### Default 3359765\n"
                  "### Defaults (collection agency)\n#### Default 3092\n### Enquiries\n"
                  "### Notes\n## Public record\n### Judgements\n#### Judgement 359\n"},
             {person, "### Insolvencies\n#### Insolvency 349\n"},
             {person, "### Bankruptcies\n#### Bankruptcy 9050106\n### Public notices\n"},
             {person,
              "### Lost or stolen identification\n### Company offices\n## Summary data\n"
              "## Negative block\n## Score\n## LicenceCheck\n### Licence components\n"
              "## Ministry of Justice fines\n### Overdue fines balance\n### Messages\n"
              "### Person asked about\n### Addresses asked about\n"},
             {company,
              "# Bellbird Trading Management Limited\n## Overview\n### Directors\n"
              "## Company\n### Addresses\n### Previous names\n## Shares and officers\n"
              "### Officers\n### Shares\n### Shareholders\n## Credit file\n"
              "### Defaults\n"},
             {company,
              "### Enquiries\n### Credit references\n#### Credit reference 1\n"
              "## Public record\n### Judgements\n"},
             {company,
              "### Public notices\n#### Public notice 6016\n#### Public notice 9256\n"
              "#### Public notice 540\n### Documents\n### Affiliations\n"
              "## Summary data\n## Director 1: Ginevra Müster\n### Person\n"
              "#### Addresses\n### Credit file\n#### Enquiries\n"},
         }) {
        EXPECT_NE(each.shown.find(each.section), std::string::npos) << each.section << "\nin\n"
                                                                    << each.shown;
    }
}

TEST(VedaXmlNzSheet, KnowsEveryCode) {
    sheet::expect_codes(
        "nz", "enquiry_company_with_directors",
        {
            {"StreetTypes",
             "<individual><address><street-type "
             "code='CODE'/><city>END</city></address></individual>"},
            {"NotesTypeCodes", "<note-file><note type='CODE'>END</note></note-file>"},
            {"ConsumerDefaultRelationshipTypeCodes",
             "<default-file><default><consumer-default-relationship "
             "type='CODE'/><corrections><correction/>"
             "</corrections></default></default-file>"},
            {"CorrectionStatus",
             "<individual><corrections><correction><correction-status code='CODE'/>"
             "</correction></corrections></individual>"},
            {"InsolvencyCourt",
             "<insolvency-file><insolvency><adjudication-court><code>CODE</code>"
             "</adjudication-court></insolvency></insolvency-file>"},
            {"InsolvencyStatus",
             "<insolvency-file><insolvency><insolvency-status><code>CODE</code>"
             "</insolvency-status></insolvency></insolvency-file>"},
            {"InsolvencyType",
             "<insolvency-file><insolvency><insolvency-type "
             "code='CODE'/></insolvency></insolvency-file>"},
            {"AccountTypes",
             "<default-file><default><account-type code='CODE'/></default></default-file>"},
        });
}

TEST(VedaXmlNzSheet, SaysWhatItKnowsAndNoMore) {
    struct Case {
        std::string reply;
        std::string said;
        bool clean = false;
    };
    const std::string notice = "<company-public-notice unique-id='";
    const Case cases[] = {
        {with_report("<file-id>1</file-id>"), "Looked for: defaults, judgements, insolvencies",
         true},
        {with_report("<file-id>1</file-id><summary-data><summary name='Judgements' type='count'>2"
                     "</summary></summary-data>"),
         "the bureau's totals speak of some The totals: Judgements 2."},
        {with_report("<individual/><negative-block><characteristic name='adverse-on-file' "
                     "type='boolean'>Y</characteristic></negative-block>"),
         "speak of some The totals: adverse-on-file Y."},
        {with_report(""), "has no matching file"},
        {with_company(""), "Looked for: defaults, judgements, adverse public notices", true},
        // Runs of notices with one number are one notice; the first says whether it is adverse.
        {with_company("<company-public-notice-file>" + notice + "0017'/>" + notice +
                      "17'><adverse indicator='YES'/></company-public-notice>" + notice + "18'/>" +
                      notice +
                      "17'><adverse indicator='yes'/></company-public-notice>"
                      "</company-public-notice-file>"),
         "not counted by the service: Public notices (1). Records"},
        {with_company("<company-public-notice-file>" + notice +
                      "00042'><narrative>First.</narrative></company-public-notice>" + notice +
                      "42'><narrative>Second.</narrative></company-public-notice>"
                      "</company-public-notice-file>"),
         "Public notice 42 Narrative First. Second.", true},
        {with_company("<known-affiliation><affiliated-company><company-name>A</company-name>"
                      "<number-of-shares-owned>1234567</number-of-shares-owned>"
                      "<percentage-of-shares-owned>0.255</percentage-of-shares-owned>"
                      "</affiliated-company></known-affiliation>"),
         "A 1,234,567 25.50%", true},
        {with_report("<credit-file><credit-enquiry><credit-enquirer>B</credit-enquirer>"
                     "<enquiry-amount>0.00</enquiry-amount></credit-enquiry></credit-file>"),
         " B Confidential", true},
        {with_report("<default-file><default/></default-file>"), "Default 1 No details given."},
        {sheet::reply_with("<response><licencecheck-report><licencecheck-message>Try later."
                           "</licencecheck-message></licencecheck-report></response>"),
         "LicenceCheck Try later."},
        {sheet::reply_with("<response><general-message>Hello</general-message><enquiry-report/>"
                           "</response>"),
         "The bureau's message Hello"},
        {sheet::reply_with("<response><company-selection-list/></response>"), "No companies found"},
        {sheet::reply_with("<response><company-selection-list><company-selection-list-details>"
                           "<company-name>ZARNOW LTD</company-name><registration-number>12"
                           "</registration-number></company-selection-list-details>"
                           "</company-selection-list></response>"),
         "1 company found Companies Companies (1) Company Name type Number Status "
         "Registration area ZARNOW LTD 12"},
        {sheet::reply_with("<response><error><error-description code='E901'>Too much"
                           "</error-description></error></response>"),
         "The bureau refused the request"},
        {"<other/>", "neither a credit report nor an error"},
    };
    for (const Case& each : cases) {
        const std::string shown = text_of_page(each.reply);
        EXPECT_NE(shown.find(each.said), std::string::npos) << each.said << "\nin\n" << shown;
        EXPECT_EQ(shown.find(" No adverse records Looked") != std::string::npos, each.clean)
            << shown;
    }
}

TEST(VedaXmlNzSheet, CountsAsTheStatisticsDo) {
    const std::string person = text_of_page(sheet::example("nz", "person"));
    for (const char* row :
         {" 6 adverse records, 4 open, $67,741.58 owed 3 adverse records outside the statistics On "
          "file, ",
          " Overdue fines of $707.00 ", " Defaults 2 1 $31,191.00 $4,200.50 ",
          " Defaults (collection agency) 1 1 $8,311.44 $5,153.09 ",
          " Judgements 2 1 $71,187.01 $58,387.99 ", " Insolvencies and bankruptcies 1 1 ",
          " Other insolvencies, bankruptcies 3 0 ", " Insolvency 209586 No discharge date ",
          " Judgement 78024 Not paid ", " Judgement 359 Creditor "}) {
        EXPECT_NE(person.find(row), std::string::npos) << row << "\nin\n" << person;
    }
    const std::string company = text_of_page(sheet::example("nz", "company_directors"));
    for (const char* row :
         {" 8 adverse records, 2 open, $30,884.44 owed ", " Defaults 4 2 $135,335.96 $30,884.44 ",
          " Judgements 3 not told $101,748.77 ", " Public notices 3 ",
          "The directors have 6 adverse", " Ginevra Müster 100000020 Partial 2 0 ",
          " André Alba Sampleton 100000021 Possible 4 6 "}) {
        EXPECT_NE(company.find(row), std::string::npos) << row << "\nin\n" << company;
    }
    // A file that differs in one value from the other is no copy of it.
    std::string other = sheet::example("nz", "company_directors");
    const std::string date = "create-date=\"";
    other.replace(other.find(date, other.rfind("<company-default ")) + date.size(), 4, "1999");
    EXPECT_NE(text_of_page(other).find(" Defaults 8 "), std::string::npos);
}

}  // namespace
}  // namespace zr::nz_sheet
