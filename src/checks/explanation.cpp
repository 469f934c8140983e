// Where the lines and fields of a report come from.
#include <algorithm>
#include <array>
#include <set>
#include <utility>

#include "checks/reply_watch.h"
#include "values/convert.h"
#include "values/text.h"

namespace zr {
namespace {

/// A value as a text to compare.
std::string comparable(const Value& value) {
    struct {
        std::string operator()(Null) const { return {}; }
        std::string operator()(std::string_view text) const { return std::string(text); }
        std::string operator()(const std::string& text) const { return text; }
        std::string operator()(bool flag) const { return flag ? "true" : "false"; }
        std::string operator()(std::int32_t number) const { return std::to_string(number); }
        std::string operator()(Currency amount) const { return amount.to_plain(); }
        std::string operator()(const DateTime& date) const { return date.to_iso(); }
    } const shown;
    return std::visit(shown, value);
}

bool is_number(ValueType type) {
    return type == ValueType::kCount || type == ValueType::kInteger || type == ValueType::kCurrency;
}

/// The properties that show what is counted of families: those that change with it.
const std::vector<bool>& counted_properties() {
    static const std::vector<bool> kCounted = [] {
        Response blank;
        Response counted;
        for (std::size_t family = 0; family < kRecordFamilies; ++family) {
            FamilyStatistics& statistics = counted.statistics(static_cast<RecordFamily>(family));
            statistics.total = statistics.open = 1;
            statistics.years.fill(1);
            statistics.loaded_balance = statistics.loaded_value = Currency::from_whole(1);
        }
        std::vector<bool> result;
        for (const Property<Response>& property : response_properties()) {
            result.push_back(comparable(property.read(blank)) !=
                             comparable(property.read(counted)));
        }
        return result;
    }();
    return kCounted;
}

}  // namespace

void ReplyCheck::Watch::begin_fields() {
    if (!explains_) {
        return;
    }
    origins_.assign(response_properties().size(), {});
    values_.clear();
    open_.clear();
    for (const Property<Response>& property : response_properties()) {
        values_.push_back(comparable(property.read(*response_)));
        // What is there already, such as the reply's own text, comes from elsewhere.
        open_.push_back(property.type != ValueType::kText || values_.back().empty());
    }
}

void ReplyCheck::Watch::note_fields() {
    if (!explains_) {
        return;
    }
    const std::string_view read = last_.node ? text_of(last_) : std::string_view();
    std::vector<std::size_t> changed;
    std::vector<ReadValue> whole{last_};
    for (std::size_t at = 0; at < values_.size(); ++at) {
        const Property<Response>& property = response_properties()[at];
        if (!open_[at] || counted_properties()[at]) {
            continue;
        }
        std::string now = comparable(property.read(*response_));
        if (now == values_[at]) {
            continue;
        }
        whole = origins_[at].empty() ? whole : origins_[at];
        values_[at] = std::move(now);
        const bool comes_from_it = !is_number(property.type) ||
                                   convert::to_currency(read) == convert::to_currency(values_[at]);
        if (last_.node && comes_from_it && property.type != ValueType::kBoolean) {
            changed.push_back(at);
        }
    }
    // What is split into several, one of them itself again, comes from where the whole did.
    for (const std::size_t at : changed) {
        origins_[at] = values_[at] == read ? std::vector<ReadValue>{last_} : whole;
        if (values_[at].empty()) {
            origins_[at].clear();
        }
    }
}

void ReplyCheck::Watch::note_counts(XmlNode record) {
    if (!explains_) {
        return;
    }
    for (std::size_t at = 0; at < values_.size(); ++at) {
        if (!counted_properties()[at]) {
            continue;
        }
        std::string now = comparable(response_properties()[at].read(*response_));
        if (now != values_[at]) {
            origins_[at].push_back({record, 0});
            values_[at] = std::move(now);
        }
    }
}

std::vector<Origin> ReplyCheck::Watch::to_origins(const SourceMap& source,
                                                  const std::vector<ReadValue>& values) const {
    std::vector<Origin> origins;
    for (const ReadValue& value : values) {
        const std::uint32_t index = value.node.index();
        origins.push_back({source.path_with_positions(index, attribute_name(source, value)),
                           source.position(index)});
    }
    return origins;
}

/// Of a line that stands in no layout: it shows what is counted of a family, or a field.
std::vector<ReadValue> ReplyCheck::Watch::origins_beside_layout(const ResponseElement& line) const {
    std::vector<ReadValue> origins;
    for (const SummaryBlock& block : blocks()) {
        if (!origins.empty() || line.ResponseSubGroup() != block.sub_group) {
            continue;
        }
        for (const Counted& counted : counted_) {
            if (counted.category->family == block.family &&
                (counted.open || line.ResponseName() != block.open_label)) {
                origins.push_back({counted.record, 0});
            }
        }
    }
    const std::string_view shown = line.ResponseDescription();
    for (std::size_t at = 0; at < values_.size() && origins.empty(); ++at) {
        const std::size_t size = values_[at].size();
        // A match type may have a remark behind it.
        if (!counted_properties()[at] && !origins_[at].empty() &&
            text::equal_ignoring_case(shown.substr(0, size), values_[at]) &&
            (shown.size() == size || shown.substr(size).starts_with(" - "))) {
            origins = origins_[at];
        }
    }
    return origins;
}

void ReplyCheck::Watch::explain(const SourceMap& source) {
    for (std::size_t at = 0; at < values_.size(); ++at) {
        if (!origins_[at].empty()) {
            explanation.fields.push_back(
                {response_properties()[at].name, to_origins(source, origins_[at])});
        }
    }
    auto written = lines_.begin();
    std::size_t number = 0;
    for (const ResponseElement& element : response_->ResponseElements()) {
        std::vector<ReadValue> values;
        if (written != lines_.end() && written->number == number) {
            for (std::size_t at = written->reads_begin; at < written->reads_end; ++at) {
                if (!text_of(reads_[at]).empty() &&
                    std::ranges::find(values, reads_[at]) == values.end()) {
                    values.push_back(reads_[at]);
                }
            }
            ++written;
        } else {
            values = origins_beside_layout(element);
        }
        explanation.lines.push_back(to_origins(source, values));
        ++number;
    }
}

}  // namespace zr
