#include "cli/check_table.h"

#include <algorithm>

#include "cli/failure.h"
#include "cli/files.h"
#include "cli/report_text.h"

namespace zr::cli {
namespace {

using FindingKind = Finding::Kind;

/// The kinds of findings in the order of the tables.
constexpr struct {
    FindingKind kind;
    std::string_view name;
    std::string_view heading;
} kKinds[] = {
    {FindingKind::kNotConverted, "NotConverted", "Read, but not what it is read as"},
    {FindingKind::kDisagreeing, "Disagreeing", "Figures that disagree"},
    {FindingKind::kEncoding, "Encoding", "Encodings that are not those declared"},
    {FindingKind::kNotShown, "NotShown", "Shown by no line, field or count"},
};

std::string number(std::uint64_t value, std::string_view one, std::string_view many) {
    return std::to_string(value) + " " + std::string(value == 1 ? one : many);
}

void append_left(std::string& text, const std::string& value, std::size_t width) {
    text.append(value).append(width - std::min(width, value.size()), ' ');
}

void append_right(std::string& text, const std::string& value, std::size_t width) {
    text.append(width - std::min(width, value.size()), ' ').append(value);
}

}  // namespace

std::string CheckTable::place_of(const Row& row) {
    return row.line == 0 ? row.source : row.source + ":" + std::to_string(row.line);
}

void CheckTable::set_known(const std::string& path) {
    try {
        const automation::JsonValue document = automation::parse_json(read_text_file(path));
        const automation::JsonValue* const findings = document.find("Findings");
        if (findings == nullptr) {
            throw automation::JsonError("Findings are missing");
        }
        for (const automation::JsonValue& finding : findings->items()) {
            const auto text = [&](std::string_view name) {
                const automation::JsonValue* const value = finding.find(name);
                return value == nullptr ? std::string() : std::string(value->text());
            };
            for (const auto& row : kKinds) {
                if (row.name == text("Kind")) {
                    known_.emplace(row.kind, text("Path"), text("What"));
                }
            }
        }
    } catch (const automation::JsonError&) {
        throw MisuseError(path + " is no result of check --format json.");
    }
}

void CheckTable::add(const std::vector<Finding>& findings, std::string_view source) {
    ++replies_;
    for (const Finding& finding : findings) {
        Key key{finding.kind, finding.path, finding.what};
        if (known_.contains(key)) {
            ++passed_over_;
            continue;
        }
        Row& row = rows_[std::move(key)];
        if (row.replies++ == 0) {
            row.source = source;
            row.line = finding.line;
            row.example = finding.example;
        }
        row.times += finding.times;
    }
}

std::vector<const std::pair<const CheckTable::Key, CheckTable::Row>*> CheckTable::rows_of(
    FindingKind kind) const {
    std::vector<const std::pair<const Key, Row>*> rows;
    for (const auto& entry : rows_) {
        if (std::get<FindingKind>(entry.first) == kind) {
            rows.push_back(&entry);
        }
    }
    std::ranges::stable_sort(rows, [](const auto* one, const auto* other) {
        return one->second.replies > other->second.replies;
    });
    return rows;
}

std::string CheckTable::text() const {
    constexpr std::size_t kWidth = 9;
    constexpr std::size_t kWidestPlace = 36;
    std::string text = number(replies_, "reply", "replies") + " checked";
    text += failed_ == 0 ? "" : ", " + std::to_string(failed_) + " could not be translated";
    text += passed_over_ == 0 ? "" : ", " + number(passed_over_, "finding", "findings") + " known";
    text += rows_.empty() ? ". Nothing to tell.\n" : ".\n";
    for (const auto& [kind, name, heading] : kKinds) {
        const auto rows = rows_of(kind);
        if (rows.empty()) {
            continue;
        }
        std::size_t width = 0;
        for (const auto* const entry : rows) {
            width = std::max(width, std::min(place_of(entry->second).size(), kWidestPlace));
        }
        text.append("\n").append(heading).append("\n  replies    times  ");
        append_left(text, "first in", width);
        text += "  path\n";
        for (const auto* const entry : rows) {
            const auto& [its_kind, path, what] = entry->first;
            const Row& row = entry->second;
            append_right(text, std::to_string(row.replies), kWidth);
            append_right(text, std::to_string(row.times), kWidth);
            append_left(text.append("  "), place_of(row), width);
            text.append("  ").append(path);
            text.append(path.empty() || what.empty() ? "" : ": ").append(what);
            text += row.example.empty() ? "\n" : ": " + row.example + "\n";
        }
    }
    return printable(text);
}

void CheckTable::write(automation::JsonWriter& json) const {
    json.begin_object();
    json.number("Replies", replies_);
    json.number("Failed", failed_);
    json.number("Known", passed_over_);
    json.name("Findings");
    json.begin_array();
    for (const auto& kind : kKinds) {
        for (const auto* const entry : rows_of(kind.kind)) {
            const auto& [its_kind, path, what] = entry->first;
            const Row& row = entry->second;
            json.begin_object();
            json.text("Kind", kind.name);
            json.text("Path", path);
            json.text("What", what);
            json.number("Replies", row.replies);
            json.number("Times", row.times);
            json.text("FirstIn", row.source);
            json.number("FirstLine", row.line);
            json.text("Example", row.example);
            json.end_object();
        }
    }
    json.end_array();
    json.end_object();
}

}  // namespace zr::cli
