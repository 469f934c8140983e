#include "cli/result_diff.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <utility>

#include "cli/failure.h"
#include "cli/files.h"
#include "cli/report_text.h"
#include "values/text.h"

namespace zr::cli {
namespace {

using automation::JsonValue;

/// Throws MisuseError where the line is none.
JsonValue parse_result(std::string_view line, const std::string& path, std::uint64_t number) {
    try {
        JsonValue result = automation::parse_json(line);
        if (result.find("Result") != nullptr) {
            return result;
        }
    } catch (const automation::JsonError&) {
        // said below
    }
    throw MisuseError("Line " + std::to_string(number) + " of " + path + " is no result.");
}

/// What a result is matched by: the file that heads it, or its line.
std::string name_of(std::string_view line, const std::string& path, std::uint64_t number) {
    constexpr std::string_view kHead = "{\"File\":";
    if (line.starts_with(kHead)) {
        std::size_t end = kHead.size() + 1;
        while (end < line.size() && line[end] != '"') {
            end += line[end] == '\\' ? 2 : 1;
        }
        try {
            return automation::parse_json(line.substr(kHead.size(), end + 1 - kHead.size())).text();
        } catch (const automation::JsonError&) {
            // as the whole line
        }
    }
    const JsonValue result = parse_result(line, path, number);
    const JsonValue* const file = result.find("File");
    return file == nullptr ? "line " + std::to_string(number) : file->text();
}

/// Where the results of a file are, by their names.
class ResultIndex {
  public:
    explicit ResultIndex(const std::string& path) : path_(path), file_(open_file(path)) {
        struct stat status {};
        if (::fstat(file_.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
            throw MisuseError(path + " is no file: the newer results are read at any place.");
        }
        const Descriptor whole(open_file(path));
        LineReader lines(whole.get(), [] { return true; });
        std::uint64_t offset = 0;
        std::uint64_t number = 0;
        for (std::string_view line; lines.next(line); offset += line.size() + 1) {
            refuse_too_long(lines, path);
            if (!line.empty()) {
                places_.push_back({hash(name_of(line, path, ++number)), number, offset,
                                   static_cast<std::uint32_t>(line.size())});
            }
        }
        std::ranges::stable_sort(places_, {}, &Place::hash);
        seen_.resize(places_.size());
    }

    static void refuse_too_long(const LineReader& lines, const std::string& path) {
        if (lines.too_long()) {
            throw MisuseError(path + " has a line of more than 256 MiB.");
        }
    }

    /// The first result with this name that was not taken yet; false when there is none.
    bool take(const std::string& name, std::string& line) {
        auto place = std::ranges::lower_bound(places_, hash(name), {}, &Place::hash);
        for (; place != places_.end() && place->hash == hash(name); ++place) {
            const auto at = static_cast<std::size_t>(place - places_.begin());
            if (seen_[at]) {
                continue;
            }
            read(*place, line);
            if (name_of(line, path_, place->number) == name) {
                seen_[at] = true;
                last_ = place->number;
                return true;
            }
        }
        return false;
    }

    /// The line of the result taken last.
    std::uint64_t number_of_last() const { return last_; }

    /// The names of those that nobody took, in the order of the file.
    std::vector<std::string> left() const {
        std::vector<Place> places;
        for (std::size_t at = 0; at < places_.size(); ++at) {
            if (!seen_[at]) {
                places.push_back(places_[at]);
            }
        }
        std::ranges::sort(places, {}, &Place::number);
        std::vector<std::string> names;
        std::string line;
        for (const Place& place : places) {
            read(place, line);
            names.push_back(name_of(line, path_, place.number));
        }
        return names;
    }

  private:
    struct Place {
        std::size_t hash;
        std::uint64_t number;  ///< 1-based
        std::uint64_t offset;
        std::uint32_t size;
    };

    static std::size_t hash(const std::string& name) { return std::hash<std::string>{}(name); }

    void read(const Place& place, std::string& line) const {
        line.resize(place.size);
        for (std::size_t done = 0; done < line.size();) {
            const ssize_t count = ::pread(file_.get(), line.data() + done, line.size() - done,
                                          static_cast<off_t>(place.offset + done));
            if (count <= 0) {
                throw MisuseError("Cannot read " + path_ + " any more.");
            }
            done += static_cast<std::size_t>(count);
        }
    }

    std::string path_;
    Descriptor file_;
    std::vector<Place> places_;
    std::vector<bool> seen_;
    std::uint64_t last_ = 0;
};

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
    LineReader lines(file.get(), [] { return true; });
    if (as_json_) {
        json_.begin_object();
        json_.name("Replies");
        json_.begin_array();
    }
    std::uint64_t number = 0;
    std::string other;
    for (std::string_view line; lines.next(line);) {
        ResultIndex::refuse_too_long(lines, before);
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
                json_.name(lines ? kLabels[at] : "Name");
                json_.text(change.label[at]);
            }
            write_value("Before", change.before);
            write_value("After", change.after);
            json_.end_object();
        }
        json_.end_array();
    };
    json_.begin_object();
    json_.name("Reply");
    json_.text(name);
    json_.name("State");
    json_.text(state);
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
    const auto write_number = [&](std::string_view name, std::uint64_t value) {
        json_.name(name);
        json_.number(static_cast<std::int64_t>(value));
    };
    json_.end_array();
    json_.name("Totals");
    json_.begin_array();
    for (const auto& [label, total] : totals_) {
        json_.begin_object();
        json_.name("Label");
        json_.text(label);
        write_number("Changed", total.changed);
        write_number("Added", total.added);
        write_number("Removed", total.removed);
        json_.end_object();
    }
    json_.end_array();
    write_number("Same", same_);
    write_number("Changed", different_);
    write_number("OnlyBefore", only_before_);
    write_number("OnlyAfter", only_after_);
    json_.end_object();
    output_.write(json_.view());
    output_.write("\n");
}

}  // namespace zr::cli
