#include "reports/statistics.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "records/component.h"
#include "reports/report_watch.h"
#include "reports/runs.h"
#include "values/text.h"
#include "xml/zr_xml_utilities.h"

namespace zr {
namespace {

/// Adds 1 to a count, which stays at 32767.
void increment(std::int16_t& count) {
    if (count < std::numeric_limits<std::int16_t>::max()) {
        ++count;
    }
}

bool is_one_of(std::span<const std::string_view> values, std::string_view value) {
    return !value.empty() && std::find(values.begin(), values.end(), value) != values.end();
}

constexpr std::string_view kPeriodLabels[] = {"In last year", "In last 2 years", "In last 3 years",
                                              "In last 4 years"};

void write_open_count(Response& response, std::string_view group, const SummaryBlock& block) {
    const std::int16_t count = response.statistics(block.family).open;
    if (!block.open_label.empty() && (response.Company() || !block.open_of_companies)) {
        const bool none = block.none_when_zero && count == 0;
        Component::lines(response).AddElement(group, block.sub_group, block.open_label,
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

StatisticsTable::StatisticsTable(std::span<const StatisticsCategory> categories, XmlNames& names)
    : watch_(dynamic_cast<ReportWatch*>(names.watch())) {
    rows_.reserve(categories.size());
    for (const StatisticsCategory& category : categories) {
        rows_.push_back({.category = &category,
                         .records = path_or_none(category.records, names),
                         .instead_of = path_or_none(category.instead_of, names),
                         .only = path_or_none(category.only_path, names),
                         .run_id = path_or_none(category.run_id, names),
                         .event_date = path_or_none(category.event_date, names),
                         .loaded = path_or_none(category.loaded, names),
                         .outstanding = path_or_none(category.outstanding, names),
                         .settled = path_or_none(category.settled_path, names),
                         .status = path_or_none(category.status_path, names)});
    }
}

void StatisticsTable::update(Response& response, XmlNode node,
                             const StatisticsPeriods& periods) const {
    std::vector<XmlNode> records;
    for (const Compiled& row : rows_) {
        if (node.first(row.instead_of)) {
            continue;
        }
        FamilyStatistics& statistics = Component::statistics(response, row.category->family);
        node.select(row.records, records);
        for (std::size_t index = 0; index < records.size();
             index = end_of_run(records, index, row.run_id, row.category->runs)) {
            if (!counts(row, records[index])) {
                continue;
            }
            count_record(row, records[index], periods, statistics);
            if (watch_ != nullptr) {
                watch_->counted(*row.category, records[index],
                                {&row.event_date, &row.loaded, &row.outstanding});
            }
        }
    }
}

bool StatisticsTable::counts(const Compiled& row, XmlNode record) {
    const StatisticsCategory& category = *row.category;
    if (category.only_path.empty()) {
        return true;
    }
    const std::string_view value = record.value(row.only).value_or("");
    if (!category.only_codes.empty()) {
        return is_one_of(category.only_codes, text::upper(value));
    }
    return (value == category.only_value) != category.only_others;
}

Currency StatisticsTable::outstanding(const Compiled& row, XmlNode record) {
    const std::string_view code = record.value(row.settled).value_or("");
    const bool settled = code.empty() ? row.category->settled_without_code
                                      : row.category->settled_by_any_code ||
                                            is_one_of(row.category->settled_codes, code);
    return settled ? Currency()
                   : ZRXMLUtilities::GetSubNodeCurrency(record, row.outstanding, Currency());
}

bool StatisticsTable::is_open(const Compiled& row, XmlNode record, Currency outstanding) {
    const auto has_status = [&] {
        return is_one_of(row.category->statuses,
                         text::upper(record.value(row.status).value_or("")));
    };
    switch (row.category->open) {
        case Open::kUnlessStatus:
            return !has_status();
        case Open::kIfStatus:
            return has_status();
        case Open::kUnlessNode:
            return !record.value(row.status);
        case Open::kNever:
            return false;
        case Open::kOwing:
            return outstanding > Currency();
    }
    return false;
}

void StatisticsTable::count_record(const Compiled& row, XmlNode record,
                                   const StatisticsPeriods& periods, FamilyStatistics& statistics) {
    const Currency owed = outstanding(row, record);
    increment(statistics.total);
    if (const auto event = ZRXMLUtilities::GetSubNodeDate(record, row.event_date)) {
        periods.count(statistics, *event);
    }
    if (is_open(row, record, owed)) {
        increment(statistics.open);
    }
    statistics.loaded_balance += owed;
    statistics.loaded_value += ZRXMLUtilities::GetSubNodeCurrency(record, row.loaded, Currency());
}

void write_quick_summary(Response& response, std::span<const SummaryBlock> blocks) {
    constexpr std::string_view kGroup = "Quick Summary";
    for (const SummaryBlock& block : blocks) {
        const FamilyStatistics& counted = response.statistics(block.family);
        if (counted.total > 0) {
            Component::lines(response).AddElement(kGroup, block.sub_group, "Total",
                                                  std::to_string(counted.total));
            write_open_count(response, kGroup, block);
        }
    }
}

void write_statistics(Response& response, std::span<const SummaryBlock> blocks) {
    constexpr std::string_view kGroup = "Statistics";
    ReportLines& lines = Component::lines(response);
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
        write_open_count(response, kGroup, block);
    }
}

}  // namespace zr
