// Finds what two results of one reply have different.
#include <algorithm>
#include <map>
#include <utility>

#include "cli/result_diff.h"

namespace zr::cli {
namespace {

using automation::JsonValue;
using Kind = JsonValue::Kind;

/// Labels and their values in order.
using Entries = std::vector<std::pair<std::vector<std::string>, std::string>>;

std::string shown(const JsonValue& value) {
    switch (value.kind()) {
        case Kind::kNull:
            return "null";
        case Kind::kBoolean:
            return value.boolean() ? "true" : "false";
        default:
            return value.text();
    }
}

std::string text_of(const JsonValue& object, std::string_view name) {
    const JsonValue* const value = object.find(name);
    return value == nullptr ? std::string() : value->text();
}

void add_line(Entries& entries, const JsonValue& line) {
    entries.push_back({{text_of(line, "ResponseGroup"), text_of(line, "ResponseSubGroup"),
                        text_of(line, "ResponseName")},
                       text_of(line, "ResponseDescription")});
}

/// The plain members of a result and of its response, then the lines. A company found is a line for
/// each of its members.
Entries entries_of(const JsonValue& result) {
    Entries entries;
    Entries lines;
    const auto add = [&](const auto& self, const JsonValue& object) -> void {
        for (const auto& [name, value] : object.members()) {
            if (value.kind() == Kind::kObject && name == "Response") {
                self(self, value);
            } else if (value.kind() == Kind::kArray && name == "ResponseElements") {
                for (const JsonValue& line : value.items()) {
                    add_line(lines, line);
                }
            } else if (value.kind() == Kind::kArray) {
                for (std::size_t at = 0; at < value.items().size(); ++at) {
                    for (const auto& [member, text] : value.items()[at].members()) {
                        lines.push_back({{name, std::to_string(at + 1), member}, shown(text)});
                    }
                }
            } else if (value.kind() != Kind::kObject && name != "File") {
                entries.push_back({{name}, shown(value)});
            }
        }
    };
    add(add, result);
    entries.insert(entries.end(), lines.begin(), lines.end());
    return entries;
}

}  // namespace

std::vector<Change> changes_between(const JsonValue& before, const JsonValue& after) {
    const Entries old_entries = entries_of(before);
    const Entries new_entries = entries_of(after);
    std::map<std::vector<std::string>, std::vector<const std::string*>> left;
    for (auto entry = new_entries.rbegin(); entry != new_entries.rend(); ++entry) {
        left[entry->first].push_back(&entry->second);  // the first one last
    }
    std::vector<Change> changes;
    for (const auto& [label, value] : old_entries) {
        std::vector<const std::string*>& values = left[label];
        if (values.empty()) {
            changes.push_back({label, value, std::nullopt});
            continue;
        }
        if (*values.back() != value) {
            changes.push_back({label, value, *values.back()});
        }
        values.pop_back();
    }
    for (const auto& [label, value] : new_entries) {
        std::vector<const std::string*>& values = left[label];
        if (std::ranges::find(values, &value) != values.end()) {
            changes.push_back({label, std::nullopt, value});
        }
    }
    const bool reordered = changes.empty() && old_entries != new_entries;
    const auto is_line = [](const auto& entry) { return entry.first.size() > 1; };
    if (reordered &&
        !std::ranges::equal(std::ranges::find_if(old_entries, is_line), old_entries.end(),
                            std::ranges::find_if(new_entries, is_line), new_entries.end())) {
        changes.push_back({{"order of lines"}, "as it was", "another"});
    }
    return changes;
}

}  // namespace zr::cli
