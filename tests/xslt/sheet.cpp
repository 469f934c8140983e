#include "xslt/sheet.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>
#include <regex>
#include <sstream>
#include <vector>

#include "platform/style_sheet.h"
#include "values/regional_format.h"
#include "xslt/page.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::sheet {
namespace {

const std::string kRoot = std::string(ZR_TEST_DATA) + "/..";

// What the tests call the service, its name, its country, its sheet and its examples.
struct Service {
    std::string key;
    const char* name;
    const char* country;
    const char* sheet;
    const char* examples;
};
const Service kServices[] = {
    {"au", "VedaXMLAU", "AU", "vedaxml_au", "vedaxml_au_"},
    {"nz", "VedaXMLNZ", "NZ", "vedaxml_nz", "vedaxml_nz_"},
    {"b2bay_au", "B2BayAU", "AU", "vedaxml_au", "b2bay_"},
    {"b2bay_nz", "B2BayNZ", "NZ", "b2bay_nz", "b2bay_nz_"},
    {"b2bay_nz_v2", "B2BayNZ_V2", "NZ", "b2bay_nz_v2", "b2bay_nz_v2_"},
};

const Service& find(const std::string& key) {
    return *std::find_if(std::begin(kServices), std::end(kServices),
                         [&key](const Service& service) { return service.key == key; });
}

std::string sheet_file(const Service& service) { return kRoot + "/xslt/" + service.sheet + ".xsl"; }

std::unique_ptr<Request> translated(ZRCreditBureau& bureau, const Service& service,
                                    const std::string& product, const std::string& reply) {
    auto request = bureau.CreateRequest();
    request->ServiceName(service.name);
    request->ProductId(product);
    EXPECT_TRUE(bureau.BuildResponse(*request, DateTime::ymd(2012, 6, 15), reply))
        << bureau.ErrorMessage();
    return request;
}

// A facade whose service renders with its sheet.
void initialise(ZRCreditBureau& bureau, const Service& service, bool directors_counted) {
    ASSERT_TRUE(bureau.Initialise(service.country));
    zr::Service& own = bureau.Services().Item(service.name);
    for (const Property<zr::Service>& setting : own.settings()) {
        if (setting.name == "XSLTFileName") setting.write(own, sheet_file(service));
        if (setting.name == "CompanyAddDirectorsStatistics") setting.write(own, directors_counted);
    }
}

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

std::string example(const std::string& service, const std::string& name) {
    std::ifstream file(kRoot + "/examples/" + find(service).examples + name + ".xml",
                       std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string render(const std::string& service, const std::string& reply) {
    static StyleSheets sheets;
    return sheets.transform(reply, sheet_file(find(service)));
}

std::string render_by_component(const std::string& service, const std::string& reply,
                                const std::string& product, bool directors_counted) {
    ZRCreditBureau bureau;
    initialise(bureau, find(service), directors_counted);
    return translated(bureau, find(service), product, reply)->Response()->ResponseHTML();
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

void expect_whole_page(const std::string& service, const std::string& name) {
    SCOPED_TRACE(service + ' ' + name);
    const std::string html = render(service, example(service, name));
    EXPECT_TRUE(html.starts_with("<!DOCTYPE html")) << html.substr(0, 80);
    EXPECT_EQ(page::unbalanced(html), "");
    EXPECT_NE(html.find("<html lang=\"en-" + std::string(find(service).country) + "\">"),
              std::string::npos);
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

void expect_every_line(const std::string& service, const std::string& name,
                       const std::string& product) {
    ZRCreditBureau bureau;
    ASSERT_TRUE(bureau.Initialise(find(service).country));
    bureau.DateFormat("d mmm yyyy");
    const std::string reply = example(service, name);
    const auto request = translated(bureau, find(service), product, reply);

    const std::string shown = comparable(page::plain_text(render(service, reply)));
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

void expect_figures(const std::string& service, const std::string& name, const std::string& product,
                    bool directors_counted) {
    SCOPED_TRACE(service + ' ' + name);
    ZRCreditBureau bureau;
    initialise(bureau, find(service), directors_counted);
    const auto request = translated(bureau, find(service), product, example(service, name));
    const Response& response = *request->Response();
    // Disqualifications have no figure of their own.
    const auto disqualified = [&] {
        const std::string reply = response.ResponseXML();
        const std::regex record("<disqualified-directorship>");
        return std::distance(std::sregex_iterator(reply.begin(), reply.end(), record), {});
    }();
    const auto adverse = response.DefaultCount() + response.CollectionCount() +
                         response.JudgementCount() + response.BankruptcyCount() +
                         response.PublicNoticeAdverseCount() + disqualified;
    const int open = response.DefaultCountUnpaid() + response.CollectionCountUnpaid() +
                     response.JudgementCountUnpaid() + response.BankruptcyCountUndischarged();
    Currency owed = response.DefaultLoadedBalance();
    owed += response.CollectionLoadedBalance();
    owed += response.JudgementLoadedBalance();
    const std::string expected =
        adverse == 0 ? " outside the statistics, "
                     : ' ' + std::to_string(adverse) + " adverse records, " + std::to_string(open) +
                           " open, " + RegionalFormat("currency").format(owed) + " owed ";
    const std::string shown = page::plain_text(response.ResponseHTML());
    EXPECT_NE(shown.find(expected), std::string::npos) << expected << "\nin\n" << shown;
}

void expect_codes(const std::string& service, const std::string& product_id,
                  const std::string& table_name, const std::string& record) {
    ZRCreditBureau bureau;
    ASSERT_TRUE(bureau.Initialise(find(service).country));
    const auto& own = bureau.Services().Item(find(service).name);
    const auto& product = own.Products().Item(product_id);
    const auto shown = [&](const std::string& code) {
        std::string report = "<response><enquiry-report>" + record + "</enquiry-report></response>";
        page::replace_all(report, "CODE", code);
        return page::plain_text(render(service, reply_with(report)));
    };
    const bool of_product = product.CodeTables().Exists(table_name);
    const auto& table = (of_product ? product.CodeTables() : own.CodeTables()).Item(table_name);
    EXPECT_GT(table.Count(), 1) << table_name;
    for (const auto& row : table) {
        const std::string code(row.Code());
        // Of rows with one code the first is the one that a look-up finds.
        const std::string description(table.GetDescriptionFromCode(code));
        EXPECT_NE(shown(code).find(' ' + description + ' '), std::string::npos)
            << table_name << ' ' << code << ' ' << description;
    }
    EXPECT_NE(shown("?!").find("?!"), std::string::npos) << table_name;
}

void expect_no_markup(const std::string& service, const std::string& name) {
    const std::string hostile = "&lt;img src=x onerror=1&gt;&amp;&quot;";
    std::string reply = example(service, name);
    reply = std::regex_replace(reply, std::regex(">[^<>\n]+</"), ">" + hostile + "</");
    EXPECT_NE(render(service, reply).find("&lt;img src=x"), std::string::npos) << name;
    EXPECT_EQ(render(service, reply).find("<img"), std::string::npos) << name;

    reply =
        std::regex_replace(reply, std::regex(" ([a-z-]+)=\"[^\"]+\""), " $1=\"" + hostile + "\"");
    reply.erase(0, reply.find("<BCAmessage"));
    const std::string html = render(service, reply);
    EXPECT_EQ(html.find("<img"), std::string::npos) << name;
    EXPECT_EQ(page::unbalanced(html), "") << name;
}

}  // namespace zr::sheet
