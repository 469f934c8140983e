#include "services/common/statistics.h"

#include <algorithm>
#include <cstddef>

#include "platform/text.h"
#include "xml/zr_xml_utilities.h"

namespace zr {
namespace {

XmlPath compile(std::string_view path, XmlNames& names) {
    return path.empty() ? XmlPath() : XmlPath(path, names);
}

bool is_one_of(std::span<const std::string_view> values, std::string_view value) {
    return !value.empty() && std::find(values.begin(), values.end(), value) != values.end();
}

constexpr std::string_view kPeriodLabels[] = {"In last year", "In last 2 years", "In last 3 years",
                                              "In last 4 years"};

void write_open_count(ResponseElements& lines, std::string_view group, const SummaryBlock& block,
                      std::int16_t count) {
    if (!block.open_label.empty()) {
        const bool none = block.none_when_zero && count == 0;
        lines.AddElement(group, block.sub_group, block.open_label,
                         none ? "None" : std::to_string(count));
    }
}

}  // namespace

StatisticsPeriods::StatisticsPeriods(const DateTime& response_date)
    : starts_{response_date.years_before(1), response_date.years_before(2),
              response_date.years_before(3), response_date.years_before(4)} {}

void StatisticsPeriods::count(FamilyStatistics& statistics, const DateTime& event) const {
    for (std::size_t year = 0; year < starts_.size(); ++year) {
        if (event > starts_[year]) {
            increment(statistics.years[year]);
        }
    }
}

StatisticsTable::StatisticsTable(std::span<const StatisticsCategory> categories, XmlNames& names) {
    rows_.reserve(categories.size());
    for (const StatisticsCategory& category : categories) {
        rows_.push_back({.category = &category,
                         .records = compile(category.records, names),
                         .only = compile(category.only_path, names),
                         .event_date = compile(category.event_date, names),
                         .loaded = compile(category.loaded, names),
                         .outstanding = compile(category.outstanding, names),
                         .settled = compile(category.settled_path, names),
                         .closed = compile(category.closed_path, names)});
    }
}

void StatisticsTable::update(Response& response, XmlNode node,
                             const StatisticsPeriods& periods) const {
    std::vector<XmlNode> records;
    for (const Compiled& row : rows_) {
        FamilyStatistics& statistics = response.statistics(row.category->family);
        node.select(row.records, records);
        for (const XmlNode record : records) {
            if (counts(row, record)) {
                count_record(row, record, periods, statistics);
            }
        }
    }
}

bool StatisticsTable::counts(const Compiled& row, XmlNode record) {
    if (row.category->only_path.empty()) {
        return true;
    }
    const bool equal = record.value(row.only).value_or("") == row.category->only_value;
    return equal != row.category->only_others;
}

void StatisticsTable::count_record(const Compiled& row, XmlNode record,
                                   const StatisticsPeriods& periods, FamilyStatistics& statistics) {
    const StatisticsCategory& category = *row.category;
    increment(statistics.total);
    if (const auto event = ZRXMLUtilities::GetSubNodeDate(record, row.event_date)) {
        periods.count(statistics, *event);
    }
    if (!category.closed_path.empty()) {
        const std::string status = text::upper(record.value(row.closed).value_or(""));
        if (!is_one_of(category.closed_statuses, status)) {
            increment(statistics.open);
        }
    }
    if (category.loaded.empty()) {
        return;
    }
    const bool settled = is_one_of(category.settled_codes, record.value(row.settled).value_or(""));
    const Currency outstanding =
        settled ? Currency()
                : ZRXMLUtilities::GetSubNodeCurrency(record, row.outstanding, Currency());
    if (outstanding > Currency()) {
        increment(statistics.open);
    }
    statistics.loaded_balance += outstanding;
    statistics.loaded_value += ZRXMLUtilities::GetSubNodeCurrency(record, row.loaded, Currency());
}

void write_quick_summary(Response& response, std::span<const SummaryBlock> blocks) {
    constexpr std::string_view kGroup = "Quick Summary";
    for (const SummaryBlock& block : blocks) {
        const FamilyStatistics& counted = response.statistics(block.family);
        if (counted.total > 0) {
            response.elements().AddElement(kGroup, block.sub_group, "Total",
                                           std::to_string(counted.total));
            write_open_count(response.elements(), kGroup, block, counted.open);
        }
    }
}

void write_statistics(Response& response, std::span<const SummaryBlock> blocks) {
    constexpr std::string_view kGroup = "Statistics";
    ResponseElements& lines = response.elements();
    for (const SummaryBlock& block : blocks) {
        const FamilyStatistics& counted = response.statistics(block.family);
        if (counted.total == 0) {
            continue;
        }
        for (std::size_t year = counted.years.size(); year-- > 0;) {
            if (counted.years[year] > 0) {
                lines.AddElement(kGroup, block.sub_group, kPeriodLabels[year],
                                 std::to_string(counted.years[year]));
            }
        }
        lines.AddElement(kGroup, block.sub_group, "Total", std::to_string(counted.total));
        write_open_count(lines, kGroup, block, counted.open);
    }
}

}  // namespace zr
