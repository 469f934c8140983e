// Runs the rules: text tables of what a fragment of a reply, or a field of a request, becomes.
// Their settings are those of a case's [given], and:
//   services = A, B   every row for each of them
//   varies = X, Y     what the first fields of a row, parted by " | ", are given to
//   in = response     what is around the rows: a report (the default; in Australia the match in it)
//                     or a whole response
//   around = <a>%</a> and around the rest of the row
//   shows = ...       what the output's fields are, "-" an empty one: properties of the response,
//   the
//                     lines of a {Group}, all (lines of records), <elements> of the document,
//                     message, sent
//   dates = D:0111    a row for each date, which stands for DATE in it; its output is a family,
//   whose
//                     records of one to four years are as the digits say
#include <gtest/gtest.h>

#include "case_run.h"

namespace zr::test {
namespace {

/// One row as it is run: a row of the table, or that row on one of the table's dates.
struct Row {
    std::string input;
    std::string shows;
    std::string output;
};

std::vector<Row> rows_of(const TextTable& rules) {
    std::vector<Row> rows;
    for (const auto& [input, output] : rules.rows) {
        const std::string_view dates = rules.setting("dates");
        if (dates.empty()) {
            rows.push_back({input, std::string(rules.setting("shows")), output});
            continue;
        }
        for (const std::string_view dated : split(dates, ", ")) {
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
    return rows;
}

const std::vector<TextTable>& all_rules() {
    static const std::vector<TextTable> rules = text_tables("services/rules");
    return rules;
}

std::string reply_around(const TextTable& rules, std::string_view service, std::string fragment) {
    fragment = rules.around(fragment);
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
CaseFile case_of(const TextTable& rules, std::string_view service, std::string_view input) {
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
    const TextTable& rules = all_rules().at(GetParam());
    const std::string_view services =
        rules.setting(rules.setting("services").empty() ? "service" : "services");
    ASSERT_FALSE(rules.rows.empty());
    for (const std::string_view service : split(services.empty() ? "VedaXMLAU" : services, ", ")) {
        for (const Row& row : rows_of(rules)) {
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
                             return all_rules().at(parameter.param).name();
                         });

}  // namespace
}  // namespace zr::test
