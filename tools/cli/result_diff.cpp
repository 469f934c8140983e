#include "cli/result_diff.h"

#include <algorithm>
#include <utility>

#include "cli/files.h"
#include "cli/report_text.h"
#include "cli/result_index.h"
#include "values/text.h"

namespace zr::cli {
namespace {

using automation::JsonValue;

std::string joined(const std::vector<std::string>& label) {
    std::string text;
    for (const std::string& part : label) {
        text.append(text.empty() ? "" : " / ").append(part);
    }
    return text;
}

/// A value in one line of a text.
std::string shown(const std::string& value) {
    constexpr std::size_t kLongest = 100;
    const std::string line = text::replace_all(printable(value), "\n", " ");
    return text::length(line) <= kLongest ? line
                                          : std::string(text::first(line, kLongest)) + "... (" +
                                                std::to_string(text::length(line)) + " characters)";
}

/// The text with every number of so many digits as "#".
std::string without_numbers(std::string_view text, std::size_t least_digits) {
    std::string folded;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find_first_not_of("0123456789", at), text.size());
        if (end - at >= least_digits) {
            folded += '#';
            at = end;
        } else {
            folded += text[at++];
        }
    }
    return folded;
}

/// What a change is counted under, whatever its record: record numbers and dates are left out.
std::string total_label(const Change& change) {
    if (!change.is_line()) {
        return joined(change.label);
    }
    return joined({without_numbers(change.label[0], 1), without_numbers(change.label[1], 1),
                   without_numbers(change.label[2], 2)});
}

}  // namespace

ResultDiff::ResultDiff(Output& output, bool as_json, bool totals_only)
    : output_(output),
      as_json_(as_json),
      totals_only_(totals_only),
      json_([&output](std::string_view text) { output.write(text); }) {}

bool ResultDiff::compare(const std::string& before, const std::string& after) {
    ResultIndex index(after);
    const Descriptor file(open_file(before));
    LineReader lines(file.get());
    if (as_json_) {
        json_.begin_object();
        json_.name("Replies");
        json_.begin_array();
    }
    std::uint64_t number = 0;
    std::string other;
    for (std::string_view line; lines.next(line);) {
        refuse_too_long(lines, before);
        if (line.empty()) {
            continue;
        }
        const std::string name = name_of(line, before, ++number);
        if (index.take(name, other)) {
            if (line == other) {
                ++same_;
                continue;
            }
            compare_results(name, parse_result(line, before, number),
                            parse_result(other, after, index.number_of_last()));
        } else {
            ++only_before_;
            tell(name, "only before", {});
        }
    }
    for (const std::string& name : index.left()) {
        ++only_after_;
        tell(name, "only after", {});
    }
    as_json_ ? write_json_totals() : write_totals();
    return different_ + only_before_ + only_after_ != 0;
}

void ResultDiff::compare_results(const std::string& name, const JsonValue& before,
                                 const JsonValue& after) {
    const std::vector<Change> changes = changes_between(before, after);
    if (changes.empty()) {
        ++same_;
        return;
    }
    ++different_;
    for (const Change& change : changes) {
        Total& total = totals_[total_label(change)];
        ++(!change.before ? total.added : !change.after ? total.removed : total.changed);
    }
    tell(name, "changed", changes);
}

void ResultDiff::tell(const std::string& name, std::string_view state,
                      const std::vector<Change>& changes) {
    if (!totals_only_) {
        as_json_ ? tell_as_json(name, state, changes) : tell_as_text(name, state, changes);
    }
}

void ResultDiff::tell_as_text(const std::string& name, std::string_view state,
                              const std::vector<Change>& changes) {
    std::string text = printable(name);
    text.append(changes.empty() ? " " + std::string(state) : "").append("\n");
    for (const Change& change : changes) {
        text += !change.before ? "  + " : !change.after ? "  - " : "    ";
        text.append(shown(joined(change.label))).append(": ");
        text += change.before ? shown(*change.before) : "";
        text += change.before && change.after ? " -> " : "";
        text += change.after ? shown(*change.after) : "";
        text += "\n";
    }
    output_.write(text);
}

void ResultDiff::tell_as_json(const std::string& name, std::string_view state,
                              const std::vector<Change>& changes) {
    const auto write_value = [&](std::string_view member, const std::optional<std::string>& value) {
        json_.name(member);
        value ? json_.text(*value) : json_.null();
    };
    const auto write_changes = [&](std::string_view member, bool lines) {
        json_.name(member);
        json_.begin_array();
        for (const Change& change : changes) {
            if (change.is_line() != lines) {
                continue;
            }
            json_.begin_object();
            constexpr std::string_view kLabels[] = {"Group", "SubGroup", "Name"};
            for (std::size_t at = 0; at < change.label.size(); ++at) {
                json_.text(lines ? kLabels[at] : "Name", change.label[at]);
            }
            write_value("Before", change.before);
            write_value("After", change.after);
            json_.end_object();
        }
        json_.end_array();
    };
    json_.begin_object();
    json_.text("Reply", name);
    json_.text("State", state);
    write_changes("Fields", false);
    write_changes("Lines", true);
    json_.end_object();
}

void ResultDiff::write_totals() {
    std::string text;
    if (!totals_.empty()) {
        text = std::string(totals_only_ ? "" : "\n") + "  changed    added  removed  label\n";
    }
    for (const auto& [label, total] : totals_) {
        for (const std::uint64_t count : {total.changed, total.added, total.removed}) {
            const std::string digits = std::to_string(count);
            text.append(9 - std::min<std::size_t>(9, digits.size()), ' ').append(digits);
        }
        text.append("  ").append(shown(label)).append("\n");
    }
    text += std::to_string(same_) + " the same, " + std::to_string(different_) + " changed, " +
            std::to_string(only_before_) + " only before, " + std::to_string(only_after_) +
            " only after.\n";
    output_.write(text);
}

void ResultDiff::write_json_totals() {
    json_.end_array();
    json_.name("Totals");
    json_.begin_array();
    for (const auto& [label, total] : totals_) {
        json_.begin_object();
        json_.text("Label", label);
        json_.number("Changed", total.changed);
        json_.number("Added", total.added);
        json_.number("Removed", total.removed);
        json_.end_object();
    }
    json_.end_array();
    json_.number("Same", same_);
    json_.number("Changed", different_);
    json_.number("OnlyBefore", only_before_);
    json_.number("OnlyAfter", only_after_);
    json_.end_object();
    output_.write(json_.view());
    output_.write("\n");
}

}  // namespace zr::cli
