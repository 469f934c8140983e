// Runs the rules: tables of what a fragment of a reply, or a field of a request, becomes. A file
// under rules/ has, behind a few words, tables:
//   [Title]
//   name = value      as in a case's [given]
//   services = A, B   every row for each of them
//   varies = X, Y     what the first fields of a row are given to
//   in = response     what is around the rows: a report (the default; in Australia the match in it)
//                     or a whole response
//   around = <a>%</a> and around the rest of the row
//   shows = ...       what the fields behind the arrow are: properties of the response, the lines
//   of
//                     a {Group}, all (lines of records), <elements> of the document, message, sent
//   input => output   a row, its fields parted by " | "; "-" is an empty output
//   dates = D:0111    a row for each date, which stands for DATE in it; its output is a family,
//   whose
//                     records of one to four years are as the digits say
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <stdexcept>

#include "case_run.h"

namespace zr::test {
namespace {

struct Row {
    std::string input;
    std::string shows;
    std::string output;
};

struct Rules {
    std::string title;
    std::map<std::string, std::string, std::less<>> settings;
    std::vector<Row> rows;

    void add_row(std::string input, std::string output);
    std::string_view setting(std::string_view name) const {
        const auto found = settings.find(name);
        return found == settings.end() ? std::string_view() : found->second;
    }
};

void Rules::add_row(std::string input, std::string output) {
    if (setting("dates").empty()) {
        rows.push_back({std::move(input), std::string(setting("shows")), std::move(output)});
        return;
    }
    for (const std::string_view dated : split(setting("dates"), ", ")) {
        const std::size_t colon = dated.find(':');
        Row row{input, output + "Count", "1"};
        row.input.replace(row.input.find("DATE"), 4, dated.substr(0, colon));
        for (std::size_t year = 1; year <= 4; ++year) {
            row.shows += ", " + output + "Count" + std::to_string(year) + "Y";
            (row.output += " | ") += dated[colon + year];
        }
        rows.push_back(row);
    }
}

void read_line(std::string_view line, std::vector<Rules>& tables) {
    constexpr std::string_view kArrow = "=> ";
    const std::size_t arrow = line.find(kArrow);
    if (line.starts_with('[')) {
        tables.push_back({std::string(line.substr(1, line.size() - 2)), {}, {}});
    } else if (tables.empty() || line.empty()) {
        return;
    } else if (arrow != std::string_view::npos) {
        std::string input(line.substr(0, arrow));
        if (!input.ends_with("| ")) {
            input.pop_back();
        }
        tables.back().add_row(input, std::string(line.substr(arrow + kArrow.size())));
    } else {
        const std::size_t equals = line.find(" = ");
        tables.back().settings.emplace(line.substr(0, equals), line.substr(equals + 3));
    }
}

const std::vector<Rules>& all_rules() {
    static const std::vector<Rules> rules = [] {
        std::vector<Rules> tables;
        const std::filesystem::path folder = std::filesystem::path(ZR_TEST_DATA) / "services/rules";
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            const std::string text = read_file(entry.path());
            std::vector<Rules> own;
            for (const std::string_view line : split(text, "\n")) {
                read_line(line, own);
            }
            std::ranges::move(own, std::back_inserter(tables));
        }
        return tables;
    }();
    return rules;
}

std::string reply_around(const Rules& rules, std::string_view service, std::string fragment) {
    if (std::string around(rules.setting("around")); !around.empty()) {
        const std::size_t at = around.find('%');
        fragment = at == std::string::npos ? around : around.replace(at, 1, fragment);
    }
    const std::string_view in = rules.setting("in");
    if (in.empty() && service.ends_with("AU")) {
        fragment = "<primary-match>" + fragment + "</primary-match>";
    }
    if (in != "response") {
        fragment = "<enquiry-report>" + fragment + "</enquiry-report>";
    }
    return "<BCAmessage><BCAservices><BCAservice><BCAservice-data><response>" + fragment +
           "</response></BCAservice-data></BCAservice></BCAservices></BCAmessage>";
}

/// The case that a row of a table is.
CaseFile case_of(const Rules& rules, std::string_view service, std::string_view input) {
    CaseFile file;
    file.given.emplace_back("service", service);
    for (const auto& [name, value] : rules.settings) {
        if (name.find('.') != std::string::npos || name == "operation" || name == "response-date") {
            file.given.emplace_back(name, value);
        }
    }
    if (rules.setting("shows").find('<') != std::string_view::npos) {
        file.given.emplace_back("operation", "enquiry");
    }
    if (const std::string_view varies = rules.setting("varies"); !varies.empty()) {
        for (const std::string_view name : split(varies, ", ")) {
            const std::size_t end = input.find(" | ");
            file.given.emplace_back(name, unescaped(input.substr(0, end)));
            input.remove_prefix(end == std::string_view::npos ? input.size() : end + 3);
        }
    }
    file.sections["reply"] = reply_around(rules, service, std::string(input));
    return file;
}

/// The lines of a group, or of every group but those that sum up.
std::string shown_group(const Response& response, std::string_view group) {
    std::string text;
    for (const ResponseElement& line : response.ResponseElements()) {
        const std::string_view own = line.ResponseGroup();
        const bool sums_up = own == "Response" || own == "Quick Summary" || own == "Statistics";
        if (group.empty() ? !sums_up : own == group) {
            text.append(text.empty() ? "" : "; ").append(line.ResponseSubGroup()) += '/';
            text.append(line.ResponseName()).append("=").append(line.ResponseDescription());
        }
    }
    return escaped(text);
}

/// The text of the document's last element that opens so; "none" when there is none.
std::string shown_element(std::string_view document, std::string_view tag) {
    const std::size_t at = document.rfind(tag);
    return at == std::string_view::npos
               ? "none"
               : escaped(document.substr(at + tag.size())
                             .substr(0, document.find('<', at + 1) - at - tag.size()));
}

std::string shown_field(CaseRun& run, std::string_view what) {
    FakeBureau& bureau = run.bureau();
    if (what == "message") {
        return escaped(bureau.facade.ErrorMessage());
    }
    if (what == "sent") {
        return std::to_string(bureau.script().requests.size());
    }
    if (what.starts_with('<')) {
        return shown_element(bureau.request->RequestXML(), what);
    }
    const Response& response = *bureau.request->Response();
    if (what == "all" || what.starts_with('{')) {
        return shown_group(response, what == "all" ? "" : what.substr(1, what.size() - 2));
    }
    for (const auto& property : response_properties()) {
        if (property.name == what) {
            return shown(property.read(response));
        }
    }
    throw std::runtime_error("shows nothing: " + std::string(what));
}

class Rule : public testing::TestWithParam<std::size_t> {};

TEST_P(Rule, HoldsInEveryRow) {
    const Rules& rules = all_rules().at(GetParam());
    const std::string_view services =
        rules.setting(rules.setting("services").empty() ? "service" : "services");
    ASSERT_FALSE(rules.rows.empty());
    for (const std::string_view service : split(services.empty() ? "VedaXMLAU" : services, ", ")) {
        for (const Row& row : rules.rows) {
            const CaseFile file = case_of(rules, service, row.input);
            CaseRun run(file);
            run.run();
            std::string output;
            for (const std::string_view what : split(row.shows, ", ")) {
                const std::string field = shown_field(run, what);
                output += (output.empty() ? "" : " | ") + (field.empty() ? "-" : field);
            }
            EXPECT_EQ(output, row.output) << service << ": " << row.input;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Rules, Rule, testing::Range(std::size_t{0}, all_rules().size()),
                         [](const auto& parameter) {
                             std::string name = all_rules().at(parameter.param).title;
                             std::erase_if(name, [](char c) { return c == '\'' || c == ','; });
                             std::ranges::replace(name, ' ', '_');
                             return name;
                         });

}  // namespace
}  // namespace zr::test
