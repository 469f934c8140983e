// What a reply has that its report does not tell.
#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "checks/reply_watch.h"
#include "reports/description.h"
#include "values/convert.h"
#include "values/text.h"

namespace zr {
namespace {

constexpr std::size_t kLongestExample = 40;
// More of a reply nobody reads; a reply made to be costly has millions.
constexpr std::size_t kMostFindings = 10'000;
constexpr std::size_t kMostTotals = 256;
/// The types by which the bureau marks its own totals.
constexpr std::string_view kTotal = "count";
constexpr std::string_view kTotalAmount = "amount";

/// Whether a label is these words in any letter case, perhaps behind another one: "Credit
/// enquiries" is "Enquiries", "Insolvencies and bankruptcies" is not "Bankruptcies".
bool names(std::string_view label, std::string_view words) {
    if (words.empty() || label.size() < words.size()) {
        return false;
    }
    const std::string_view before = label.substr(0, label.size() - words.size());
    return text::equal_ignoring_case(label.substr(before.size()), words) &&
           (before.empty() || before.find(' ') == before.size() - 1);
}

std::string records_text(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " record" : " records");
}

}  // namespace

const ReportPart& ReplyCheck::Watch::part() const {
    return response_->Company() ? definition_->company->part : definition_->individual;
}

std::vector<SummaryBlock> ReplyCheck::Watch::blocks() const {
    std::vector<SummaryBlock> all = part().quick_summary;
    all.insert(all.end(), definition_->statistics.begin(), definition_->statistics.end());
    if (response_->Company()) {
        const auto& directors = definition_->company->directors_quick_summary;
        all.insert(all.end(), directors.begin(), directors.end());
    }
    return all;
}

void ReplyCheck::Watch::add_finding(Finding finding) {
    const auto same = std::ranges::find_if(findings, [&](const Finding& other) {
        return other.kind == finding.kind && other.path == finding.path &&
               other.what == finding.what;
    });
    if (same == findings.end()) {
        findings.push_back(std::move(finding));
    } else {
        ++same->times;
    }
}

void ReplyCheck::Watch::find_unread(const SourceMap& source) {
    std::ranges::sort(attributes_);
    texts_.resize(source.size());
    // By the element that is met first and, of its attributes, the one: few elements need a path.
    std::map<std::pair<std::uint32_t, std::string_view>, std::size_t> met;
    std::vector<std::uint32_t> like(source.size());  // the first element with the same path
    std::map<std::pair<std::uint32_t, std::string_view>, std::uint32_t> first;
    const auto add = [&](std::uint32_t index, std::string_view attribute) {
        if (findings.size() == kMostFindings) {
            return;
        }
        const auto [entry, is_new] = met.try_emplace({like[index], attribute}, findings.size());
        if (is_new) {
            findings.push_back({Finding::Kind::kNotShown,
                                source.path(index, attribute),
                                {},
                                {},
                                1,
                                source.position(index).line});
        } else {
            ++findings[entry->second].times;
        }
    };
    for (std::uint32_t index = 1; index < source.size(); ++index) {
        const SourceMap::Element& element = source.element(index);
        like[index] = first.try_emplace({like[element.parent], element.name}, index).first->second;
        if ((texts_[element.parent] & kWithDescendants) != 0) {
            texts_[index] |= kWithDescendants;
        }
        const auto attributes = source.attributes(index);
        // An element that is just there says something by its name, when no path has that name.
        const bool bare = !element.has_text && !element.has_children && attributes.empty();
        if (texts_[index] == 0 && (element.has_text || (bare && names_->find(element.name) == 0))) {
            add(index, {});
        }
        for (const SourceMap::Attribute& attribute : attributes) {
            const std::uint64_t key = std::uint64_t{index} << 16U | names_->find(attribute.name);
            if (attribute.filled && !attribute.name.starts_with("xmlns") &&
                !std::ranges::binary_search(attributes_, key)) {
                add(index, attribute.name);
            }
        }
    }
}

std::string_view ReplyCheck::Watch::attribute_name(const SourceMap& source,
                                                   const ReadValue& value) const {
    for (const SourceMap::Attribute& attribute : source.attributes(value.node.index())) {
        if (value.attribute != 0 && names_->find(attribute.name) == value.attribute) {
            return attribute.name;
        }
    }
    return {};
}

void ReplyCheck::Watch::find_unconverted(const SourceMap& source) {
    std::set<std::pair<std::uint64_t, std::string>> met;
    for (const auto& [value, what] : unconverted_) {
        const std::uint32_t index = value.node.index();
        // A line and a count may both have read it.
        if (met.emplace(std::uint64_t{index} << 16U | value.attribute, what).second) {
            add_finding({Finding::Kind::kNotConverted,
                         source.path(index, attribute_name(source, value)), what,
                         std::string(text::first(text_of(value), kLongestExample)), 1,
                         source.position(index).line});
        }
    }
}

bool ReplyCheck::Watch::is_of_subject(const Line& line) const {
    const auto& [kind, word] = line.section->group;
    return response_->ResponseElements()
               .Item(static_cast<std::int32_t>(line.number) + 1)
               .ResponseGroup() == word;
}

std::size_t ReplyCheck::Watch::records_with_lines(
    const std::function<bool(const layout::Section&)>& of) const {
    std::set<std::uint32_t> records;
    for (const Line& line : lines_) {
        if (of(*line.section) && is_of_subject(line)) {
            records.insert(line.record.index());
        }
    }
    return records.size();
}

void ReplyCheck::Watch::find_uncounted(const SourceMap& source) {
    // The families whose records a section shows, by where the records are.
    std::map<std::string_view, std::set<RecordFamily>> families;
    for (const StatisticsCategory& category : part().counted) {
        families[category.records].insert(category.family);
    }
    std::set<std::string_view> met;
    for (const layout::Section& section : part().sections) {
        const auto found = families.find(section.records);
        if (found == families.end() || !met.insert(section.records).second) {
            continue;
        }
        std::size_t total = 0;
        std::string names;
        for (const RecordFamily family : found->second) {
            total += static_cast<std::size_t>(response_->statistics(family).total);
            names.append(names.empty() ? "" : ", ").append(layout::name_of(family));
        }
        const std::size_t shown = records_with_lines(
            [&](const layout::Section& other) { return other.records == section.records; });
        if (shown > 0 && total == 0) {
            const bool elsewhere =
                response_->Company() && definition_->company->counts_whole_report;
            const auto first = std::ranges::find_if(lines_, [&](const Line& line) {
                return line.section->records == section.records && is_of_subject(line);
            });
            const std::uint32_t index = first->record.index();
            add_finding({Finding::Kind::kDisagreeing, source.path(index),
                         "in lines, but not counted (" + names +
                             (elsewhere ? "; a company's counts are of what is directly below "
                                          "enquiry-report)"
                                        : ")"),
                         records_text(shown), 1, source.position(index).line});
        }
    }
}

std::optional<std::size_t> ReplyCheck::Watch::own_total(std::string_view label) const {
    for (const SummaryBlock& block : blocks()) {
        if (names(label, block.sub_group)) {
            return static_cast<std::size_t>(response_->statistics(block.family).total);
        }
    }
    for (const layout::Section& section : part().sections) {
        if (names(label, section.group.word)) {
            return records_with_lines([&](const layout::Section& other) {
                return other.group.word == section.group.word;
            });
        }
    }
    return std::nullopt;
}

std::string ReplyCheck::Watch::other_amounts(std::string_view label, Currency total) const {
    const std::size_t of = label.rfind(" of ");
    const std::string_view family = of == std::string_view::npos ? label : label.substr(of + 4);
    for (const SummaryBlock& block : blocks()) {
        const auto has_amounts = [&](const StatisticsCategory& category) {
            return category.family == block.family && !category.loaded.empty();
        };
        if (text::equal_ignoring_case(family, block.sub_group) &&
            std::ranges::any_of(part().counted, has_amounts)) {
            const FamilyStatistics& own = response_->statistics(block.family);
            return total == own.loaded_value || total == own.loaded_balance
                       ? ""
                       : own.loaded_value.to_plain() + " lodged and " +
                             own.loaded_balance.to_plain() + " owed in the report";
        }
    }
    return {};
}

void ReplyCheck::Watch::find_other_totals(const SourceMap& source) {
    std::size_t totals = 0;
    for (const Line& line : lines_) {
        const auto begin = reads_.begin() + static_cast<std::ptrdiff_t>(line.reads_begin);
        const auto end = reads_.begin() + static_cast<std::ptrdiff_t>(line.reads_end);
        const auto marked = [&](std::string_view type) {
            return std::any_of(begin, end, [&](const ReadValue& value) {
                return value.attribute != 0 && text_of(value) == type;
            });
        };
        const bool amount = marked(kTotalAmount);
        if ((!amount && !marked(kTotal)) || !is_of_subject(line)) {
            continue;
        }
        if (totals++ == kMostTotals) {
            return;
        }
        const ResponseElement& element =
            response_->ResponseElements().Item(static_cast<std::int32_t>(line.number) + 1);
        const std::string_view label = element.ResponseName();
        const std::string_view total =
            amount ? text_of({line.record}) : element.ResponseDescription();
        std::string other;
        if (amount && convert::is_currency(total)) {
            other = other_amounts(label, convert::to_currency(total));
        } else if (const auto own = own_total(label);
                   !amount && own && convert::is_number(total) &&
                   convert::to_number(total, 0) != static_cast<double>(*own)) {
            other = std::to_string(*own) + " in the report";
        }
        if (!other.empty()) {
            add_finding({Finding::Kind::kDisagreeing, source.path(line.record.index()),
                         "the bureau's total of " + std::string(label),
                         std::string(total) + " in the reply, " + other, 1,
                         source.position(line.record.index()).line});
        }
    }
}

}  // namespace zr
