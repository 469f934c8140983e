// The pages of every service's sheet: text tables of what they say, what holds for every example,
// and which reports a sheet takes for its own.
#include <gtest/gtest.h>

#include <span>
#include <string>

#include "support/text_tables.h"
#include "xslt/page.h"
#include "xslt/sheet.h"

namespace zr {
namespace {

using test::TextTable;

const std::vector<TextTable>& all_tables() {
    static const std::vector<TextTable> tables = test::text_tables("xslt/pages");
    return tables;
}

/// The page of a row's input: "example NAME", the data of a reply, or with "whole" the reply.
std::string page_of(const TextTable& table, const std::string& sheet, const std::string& input) {
    if (input.starts_with("example ")) {
        const std::string reply = sheet::example(sheet, input.substr(8));
        const std::string product(table.setting("product"));
        return product.empty() ? sheet::render(sheet, reply)
                               : sheet::render_by_component(sheet, reply, product);
    }
    const std::string_view code = table.setting("code");
    return sheet::render(sheet, table.setting("whole").empty()
                                    ? sheet::reply_with(table.around(input),
                                                        std::string(code.empty() ? "BCA001" : code))
                                    : input);
}

std::string shown(std::string_view shows, const std::string& html) {
    if (shows == "headings") return sheet::sections(html);
    if (shows != "overview") return page::plain_text(html);
    return page::plain_text("<body>" + page::between(html, "<h2 id=\"overview\">", "</section>"));
}

class Page : public testing::TestWithParam<std::size_t> {};

TEST_P(Page, SaysWhatItsTableSays) {
    const TextTable& table = all_tables().at(GetParam());
    constexpr std::string_view kClean = "clean | ";
    ASSERT_FALSE(table.rows.empty());
    const bool of_several = table.setting("sheet").empty();
    for (const std::string_view named :
         test::split(table.setting(of_several ? "sheets" : "sheet"), ", ")) {
        const std::string sheet(named);
        for (const auto& [input, output] : table.rows) {
            if (table.setting("shows") == "codes") {
                sheet::expect_codes(sheet, std::string(table.setting("product")), output, input);
                continue;
            }
            const bool clean = output.starts_with(kClean);
            const std::string said = test::unescaped(clean ? output.substr(kClean.size()) : output);
            const std::string text = shown(table.setting("shows"), page_of(table, sheet, input));
            EXPECT_NE(text.find(said), std::string::npos) << said << "\nin\n" << text;
            if (!input.starts_with("example ")) {
                EXPECT_EQ(text.find(" No adverse records Looked") != std::string::npos, clean)
                    << text;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, Page, testing::Range(std::size_t{0}, all_tables().size()),
                         [](const auto& parameter) {
                             return all_tables().at(parameter.param).name();
                         });

// A service, an example of it and the product under which it is translated; "" for what is no
// report.
struct Case {
    const char* service;
    const char* name;
    const char* product;
};
constexpr Case kExamples[] = {
    {"au", "adverse", "consumer-enquiry"},
    {"nz", "person", "enquiry_individual"},
    {"nz", "company_directors", "enquiry_company_with_directors"},
    {"b2bay_nz", "individual", "enquiry_individual"},
    {"b2bay_nz", "company", "enquiry_company"},
    {"b2bay_nz_v2", "individual", "enquiry_individual"},
    {"b2bay_nz_v2", "company_directors", "enquiry_company_with_directors"},
    {"b2bay_au", "au", "consumer-enquiry"},
    {"au", "clean", "consumer-enquiry"},
    {"au", "company_search", ""},
    {"au", "refused", ""},
};

TEST(EverySheet, MakesWholePagesOfAllThatIsReported) {
    for (const Case& each : kExamples) {
        sheet::expect_whole_page(each.service, each.name);
        sheet::expect_no_markup(each.service, each.name);
        if (*each.product == '\0') continue;
        sheet::expect_every_line(each.service, each.name, each.product);
        if (std::string_view(each.name) == "clean") continue;  // its headline has no figures
        sheet::expect_figures(each.service, each.name, each.product);
        // The live company's records are told twice, which the statistics do not know.
        const std::string_view service = each.service;
        if (service.starts_with("b2bay") || std::string_view(each.name) == "company_directors") {
            sheet::expect_figures(each.service, each.name, each.product, true);
        }
    }
}

TEST(EverySheet, LetsNoElementInAValueBecomeMarkup) {
    const std::string html = sheet::render(
        "au", sheet::reply_with(
                  "<response><enquiry-report><primary-match><individual><individual-name>"
                  "<family-name><script>alert(1)</script></family-name></individual-name><unknown>"
                  "<script>alert(2)</script></unknown></individual></primary-match>"
                  "</enquiry-report></response>"));
    EXPECT_EQ(html.find("<script"), std::string::npos);
    EXPECT_NE(html.find("alert(1)"), std::string::npos);
    EXPECT_EQ(html.find("alert(2)"), std::string::npos);
}

TEST(EverySheet, TakesAFileThatDiffersInOneValueForNoCopy) {
    std::string other = sheet::example("nz", "company_directors");
    const std::string date = "create-date=\"";
    other.replace(other.find(date, other.rfind("<company-default ")) + date.size(), 4, "1999");
    EXPECT_NE(page::plain_text(sheet::render("nz", other)).find(" Defaults 8 "), std::string::npos);
}

TEST(EverySheet, RefusesReportsOfOtherServices) {
    const auto refuses = [](const Case& sheet, const Case& report) {
        const std::string html =
            sheet::render(sheet.service, sheet::example(report.service, report.name));
        return page::between(html, "<h1>", "</h1>") == "This sheet is not for this report";
    };
    const std::span all(kExamples, 7);  // one of each layout
    for (const Case& sheet : all) {
        for (const Case& report : all) {
            const bool own = std::string_view(sheet.service) == report.service;
            // Without the name of the service, a person's report of version 2 cannot be told from
            // one of VedaXML that has nothing more.
            if (&report == &all[5] && std::string_view(sheet.service) == "nz") continue;
            if (&report == &all[2] && std::string_view(sheet.service) == "b2bay_nz_v2") continue;
            EXPECT_EQ(refuses(sheet, report), !own)
                << sheet.service << " on " << report.service << ' ' << report.name;
        }
    }
}

}  // namespace
}  // namespace zr
