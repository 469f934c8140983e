#include "cli/report_headline.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <vector>

#include "values/regional_format.h"
#include "values/text.h"
#include "zrcreditbureau/currency.h"

namespace zr::cli {
namespace {

/// The lines under one pair of headings.
struct Record {
    std::string_view group;
    std::string_view sub_group;
    std::vector<const ResponseElement*> lines;

    /// The value of the line with this label; "" where there is none.
    std::string_view value(std::string_view label) const {
        for (const ResponseElement* line : lines) {
            if (line->ResponseName() == label) {
                return line->ResponseDescription();
            }
        }
        return {};
    }

    bool says(std::string_view label, std::initializer_list<std::string_view> words) const {
        const std::string_view text = value(label);
        return std::any_of(words.begin(), words.end(), [text](std::string_view word) {
            return text::equal_ignoring_case(text::first(text, text::length(word)), word);
        });
    }

    /// Whether the line with this label is an amount above 0, in whatever pattern it is written.
    bool has_amount(std::string_view label) const {
        const std::string_view text = value(label);
        return text.find_first_of("123456789") != std::string_view::npos &&
               text.find_first_of("-(") == std::string_view::npos;
    }
};

bool is_adverse(const Record& record) {
    return text::equal_ignoring_case(record.value("Adverse"), "yes");
}
bool always(const Record& /*record*/) { return true; }
bool never(const Record& /*record*/) { return false; }

bool owes(const Record& record) {
    return record.has_amount("Default Balance") || record.has_amount("Collection Balance") ||
           record.has_amount("Balance");
}
bool owes_by_status(const Record& record) {
    return record.has_amount("Current Amount") && !record.says("Status", {"paid", "settled"});
}
bool action_stands(const Record& record) {
    return record.has_amount("Court Action Amount") &&
           !record.says("Court Action Status", {"paid", "satisfied", "settled", "discharged",
                                                "dismissed", "discontinued"});
}
bool judgement_stands(const Record& record) {
    return record.has_amount("Judgement Amount") && record.value("Judgement Status").empty();
}
bool undischarged(const Record& record) {
    return record.value("Discharged date").empty() && record.value("Discharged Date").empty() &&
           !record.says("Discharge Status", {"discharged", "completed"});
}

using Figure = std::int16_t (Response::*)() const;

/// The groups that hold adverse records: which of theirs are adverse, and which are open. Where a
/// line shows words for what the bureau counts by a code, the response has the last word
/// (`figures`): with another number of open ones, none is marked.
struct Section {
    std::string_view group;
    bool (*adverse)(const Record&);
    bool (*open)(const Record&);
    std::array<Figure, 2> figures{};
};
constexpr Section kSections[] = {
    {"Consumer Defaults", always, owes_by_status, {&Response::DefaultCountUnpaid}},
    {"Commercial Defaults", always, owes_by_status, {&Response::DefaultCountUnpaid}},
    {"Court Actions",
     always,
     action_stands,
     {&Response::JudgementCountUnpaid, &Response::CollectionCountUnpaid}},
    {"Disqualified Directorships", always, never},
    {"Defaults", always, owes},
    {"Defaults (Collection Agency)", always, owes},
    {"Collections", always, owes},
    {"Judgements", always, judgement_stands, {&Response::JudgementCountUnpaid}},
    {"Insolvencies", always, undischarged},
    {"Bankruptcies", always, undischarged},
    {"Public Notices", is_adverse, never},
    {"Mercantile Gazette Notices", is_adverse, never},
};

const Section* find_section(std::string_view group) {
    const auto* const found =
        std::find_if(std::begin(kSections), std::end(kSections),
                     [group](const Section& section) { return section.group == group; });
    return found == std::end(kSections) ? nullptr : found;
}

constexpr std::string_view kPrefixEnd = ": ";

/// The group without whose it is: "Director 2: Defaults" as Defaults.
std::string_view own_group(std::string_view group) {
    const std::size_t end = group.find(kPrefixEnd);
    return end == std::string_view::npos ? group : group.substr(end + kPrefixEnd.size());
}

std::vector<Record> adverse_records(const Response& response) {
    std::vector<Record> records;
    for (const ResponseElement& line : response.ResponseElements()) {
        if (find_section(own_group(line.ResponseGroup())) == nullptr) {
            continue;
        }
        // Records without an identifier share their headings; the first label tells them apart.
        if (records.empty() || records.back().group != line.ResponseGroup() ||
            records.back().sub_group != line.ResponseSubGroup() ||
            records.back().lines.front()->ResponseName() == line.ResponseName()) {
            records.push_back({line.ResponseGroup(), line.ResponseSubGroup(), {}});
        }
        records.back().lines.push_back(&line);
    }
    std::erase_if(records, [](const Record& record) {
        return !find_section(own_group(record.group))->adverse(record);
    });
    return records;
}

template <class Test>
bool any_line(const Response& response, Test test) {
    for (const ResponseElement& line : response.ResponseElements()) {
        if (test(line)) {
            return true;
        }
    }
    return false;
}

bool counts_directors(const Response& response) {
    return any_line(response, [](const ResponseElement& line) {
        return line.ResponseGroup() == "Statistics" && line.ResponseName() == "Warning";
    });
}

/// Whether the response's figures are meant to count the record.
bool is_counted(const Record& record, bool with_directors) {
    return own_group(record.group) == record.group ||
           (with_directors && record.group.starts_with("Director "));
}

bool holds_a_report(const Response& response) {
    return any_line(response,
                    [](const ResponseElement& line) { return line.ResponseGroup() != "Response"; });
}

std::string name_of(const Response& response) {
    if (!response.Individual()) {
        return std::string(response.CompanyName());
    }
    std::string name;
    for (const std::string_view part :
         {std::string_view(response.FirstName()), std::string_view(response.MiddleNames()),
          std::string_view(response.LastName())}) {
        if (!part.empty()) {
            name.append(name.empty() ? "" : " ").append(part);
        }
    }
    return name;
}

std::string counted(std::ptrdiff_t count) {
    return std::to_string(count) + (count == 1 ? " adverse record" : " adverse records");
}

}  // namespace

std::string report_headline(const Response& response) {
    if (!holds_a_report(response)) {
        return {};
    }
    const bool with_directors = counts_directors(response);
    std::ptrdiff_t listed = 0;
    std::ptrdiff_t adverse = response.DefaultCount() + response.CollectionCount() +
                             response.JudgementCount() + response.BankruptcyCount() +
                             response.PublicNoticeAdverseCount();
    for (const Record& record : adverse_records(response)) {
        if (is_counted(record, with_directors)) {
            ++listed;
            // The one kind without a figure of its own.
            adverse += record.group == "Disqualified Directorships" ? 1 : 0;
        }
    }
    const int open = response.DefaultCountUnpaid() + response.CollectionCountUnpaid() +
                     response.JudgementCountUnpaid() + response.BankruptcyCountUndischarged();
    Currency owed = response.DefaultLoadedBalance();
    owed += response.CollectionLoadedBalance();
    owed += response.JudgementLoadedBalance();

    std::string text = name_of(response);
    text.append(text.empty() ? 0 : 1, '\n');
    if (adverse > 0) {
        text += counted(adverse) + ", " + std::to_string(open) + " open, " +
                RegionalFormat("currency").format(owed) + " owed\n";
    }
    if (listed > adverse) {
        text += counted(listed - adverse) + " outside the statistics\n";
    }
    // Where no file was matched, nothing was looked at.
    const bool matched = !response.MatchType().empty() || !response.BureauFileId().empty();
    if (adverse == 0 && listed == 0 && matched) {
        text += "No adverse records\n";
    }
    return text;
}

OpenRecords::OpenRecords(const Response& response) {
    const bool with_directors = counts_directors(response);
    const std::vector<Record> records = adverse_records(response);
    for (const Section& section : kSections) {
        int expected = 0;
        for (const Figure figure : section.figures) {
            expected += figure == nullptr ? 0 : (response.*figure)();
        }
        // Both files' defaults are one figure.
        const auto same_figure = [&section](const Record& record) {
            return find_section(own_group(record.group))->figures == section.figures;
        };
        const auto found = std::count_if(records.begin(), records.end(), [&](const Record& record) {
            return same_figure(record) && is_counted(record, with_directors) &&
                   find_section(own_group(record.group))->open(record);
        });
        if (section.figures[0] != nullptr && found != expected) {
            continue;
        }
        for (const Record& record : records) {
            if (own_group(record.group) == section.group && section.open(record)) {
                auto& marked = section.open == undischarged ? undischarged_ : unpaid_;
                marked.emplace(record.group, record.sub_group);
            }
        }
    }
}

std::string_view OpenRecords::mark(std::string_view group, std::string_view sub_group) const {
    if (unpaid_.contains({group, sub_group})) {
        return " - NOT PAID";
    }
    return undischarged_.contains({group, sub_group}) ? " - UNDISCHARGED" : "";
}

}  // namespace zr::cli
