// What a service counts of a reply, as tables: kinds of record with their rules, and the summary
// lines that show the counts.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "records/response.h"
#include "reports/runs.h"
#include "values/date_time.h"
#include "xml/xml_document.h"

namespace zr {

class ReportWatch;  // report_watch.h

/// What makes a record open: unpaid, undischarged or adverse.
enum class Open : std::uint8_t {
    kOwing,         ///< its outstanding amount is above 0
    kUnlessStatus,  ///< its upper-cased status is none of the category's
    kIfStatus,      ///< its upper-cased status is one of the category's
    kUnlessNode,    ///< it has no node at the status path
    kNever,         ///< nothing: the family has no such count
};

/// How the records of one family are found and counted. Paths are relative to a record but for
/// `records` and `instead_of`; "" where the family has no such rule.
struct StatisticsCategory {
    RecordFamily family;
    std::string_view records{};  ///< relative to the node counted under
    std::string_view
        instead_of{};  ///< nothing counts where the node counted under has one of these

    /// Only records whose value at `only_path` is (or, negated, is not) `only_value` count.
    std::string_view only_path{};
    std::string_view only_value{};
    bool only_others = false;
    /// In place of `only_value`: only records whose upper-cased value there is one of these count.
    std::span<const std::string_view> only_codes{};

    /// Records of one run, by the identifier here, count once, by the first.
    std::string_view run_id{};
    Runs runs = Runs::kNone;

    /// The date by which a record counts in the periods; without one it counts in the total only.
    std::string_view event_date{};

    std::string_view loaded{};       ///< amount as first lodged, 0 when missing
    std::string_view outstanding{};  ///< amount still owed, 0 when missing

    /// A record whose code at this path is one of these owes nothing; so does one with any code, or
    /// one without, where the family has that rule.
    std::string_view settled_path{};
    std::array<std::string_view, 3> settled_codes{};
    bool settled_by_any_code = false;
    bool settled_without_code = false;

    Open open = Open::kOwing;
    std::string_view status_path{};
    std::array<std::string_view, 2> statuses{};
};

/// The start dates of the one-to-four-year periods of a translation.
class StatisticsPeriods {
  public:
    explicit StatisticsPeriods(const DateTime& response_date);

    /// Adds 1 to every yearly count whose period the date is in: strictly later than its start.
    void count(FamilyStatistics& statistics, const DateTime& event) const;

  private:
    std::array<DateTime, 4> starts_;
};

/// A table of categories, compiled against a service's names.
class StatisticsTable {
  public:
    StatisticsTable(std::span<const StatisticsCategory> categories, XmlNames& names);

    /// Adds the records under `node` to the response's counts and amounts.
    void update(Response& response, XmlNode node, const StatisticsPeriods& periods) const;

  private:
    struct Compiled {
        const StatisticsCategory* category;
        XmlPath records;
        XmlPath instead_of;
        XmlPath only;
        XmlPath run_id;
        XmlPath event_date;
        XmlPath loaded;
        XmlPath outstanding;
        XmlPath settled;
        XmlPath status;
    };
    static bool counts(const Compiled& row, XmlNode record);
    static bool is_open(const Compiled& row, XmlNode record, Currency outstanding);
    static Currency outstanding(const Compiled& row, XmlNode record);
    static void count_record(const Compiled& row, XmlNode record, const StatisticsPeriods& periods,
                             FamilyStatistics& statistics);

    std::vector<Compiled> rows_;
    ReportWatch* watch_;
};

/// One block of summary lines: a family's counts under a sub-group.
struct SummaryBlock {
    RecordFamily family;
    std::string_view sub_group;
    std::string_view open_label;     ///< label of the open count; "" for no such line
    bool none_when_zero = false;     ///< the open count reads "None" when it is 0
    bool open_of_companies = false;  ///< the open count is shown in a company's response only
};

/// Writes ("Quick Summary", sub-group, "Total") and the open count of each block whose total is
/// above 0.
void write_quick_summary(Response& response, std::span<const SummaryBlock> blocks);

/// Writes ("Statistics", sub-group, ...): the periods above 0 from four years down to one, the
/// total and the open count of each block whose total is above 0.
void write_statistics(Response& response, std::span<const SummaryBlock> blocks);

}  // namespace zr
