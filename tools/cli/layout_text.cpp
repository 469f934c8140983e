#include "cli/layout_text.h"

#include <string_view>
#include <utility>

#include "cli/report_text.h"
#include "reports/description.h"

namespace zr::cli {
namespace {

/// A label is mostly one constant, which then needs no quotation marks.
std::string shown_label(const layout::Text& label) {
    const auto* constant = std::get_if<layout::Constant>(&label.pieces.front().what);
    return label.pieces.size() == 1 && constant != nullptr ? std::string(constant->text)
                                                           : layout::describe(label);
}

std::string shown_value(const layout::Line& line) {
    const std::string value = layout::describe(line.value);
    return line.each.empty() ? value : std::string("for each ").append(line.each) + ": " + value;
}

/// Where a section's records are.
std::string shown_records(const ReportDefinition& report, const layout::Section& section) {
    std::string text(section.records);
    if (section.source != 0) {
        text.append(" under ").append(report.sources[section.source - 1U]);
    }
    text += section.runs == Runs::kNone ? "" : ", runs merged";
    return section.without.empty() ? text
                                   : text.append(", unless there is ").append(section.without);
}

void append_part(std::string& text, const ReportDefinition& report, const ReportPart& part) {
    for (const layout::Section& section : part.sections) {
        text.append("\n  ").append(section.group.word).append(" / ");
        text += layout::describe(section.sub_group) + ": " + shown_records(report, section) + "\n";
        AlignedLines lines(4);
        for (const layout::Line& line : section.lines) {
            lines.add(shown_label(line.label), shown_value(line));
        }
        lines.append_to(text);
    }
    text += "\n  Counted\n";
    AlignedLines lines(4);
    for (const StatisticsCategory& category : part.counted) {
        lines.add(layout::name_of(category.family), layout::describe(category));
    }
    lines.append_to(text);
}

void write_members(automation::JsonWriter& json,
                   std::initializer_list<std::pair<std::string_view, std::string>> members) {
    for (const auto& [name, text] : members) {
        json.text(name, text);
    }
}

template <class Rows, class Write>
void write_rows(automation::JsonWriter& json, std::string_view name, const Rows& rows,
                Write write) {
    json.name(name);
    json.begin_array();
    for (const auto& row : rows) {
        json.begin_object();
        write(row);
        json.end_object();
    }
    json.end_array();
}

void write_part(automation::JsonWriter& json, std::string_view name, const ReportDefinition& report,
                const ReportPart& part) {
    json.name(name);
    json.begin_object();
    write_rows(json, "Sections", part.sections, [&](const layout::Section& section) {
        write_members(json, {{"Group", std::string(section.group.word)},
                             {"SubGroup", layout::describe(section.sub_group)},
                             {"Records", shown_records(report, section)}});
        write_rows(json, "Lines", section.lines, [&](const layout::Line& line) {
            write_members(json, {{"Label", shown_label(line.label)}, {"Value", shown_value(line)}});
        });
    });
    write_rows(json, "Counted", part.counted, [&](const StatisticsCategory& category) {
        write_members(json, {{"Family", std::string(layout::name_of(category.family))},
                             {"Records", layout::describe(category)}});
    });
    json.end_object();
}

}  // namespace

std::string layout_text(const ReportDefinition& report) {
    std::string text = "Report on a person\n";
    append_part(text, report, report.individual);
    if (report.company) {
        text += "\nReport on a company\n";
        append_part(text, report, report.company->part);
    }
    return text;
}

void write_layout(automation::JsonWriter& json, const ReportDefinition& report) {
    json.begin_object();
    write_part(json, "Individual", report, report.individual);
    if (report.company) {
        write_part(json, "Company", report, report.company->part);
    }
    json.end_object();
}

}  // namespace zr::cli
