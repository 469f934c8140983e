// What a report says before anything else, and which of its records are open.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "zrcreditbureau/response.h"

namespace zr::cli {

/// Whose report it is, then "11 adverse records, 5 open, $23,682.70 owed" from the response's own
/// figures, then how many adverse records stand in the lines beyond what those figures count; ""
/// for a response without a report.
std::string report_headline(const Response& response);

/// The records of a report that are not paid or not discharged, as far as its lines tell.
class OpenRecords {
  public:
    explicit OpenRecords(const Response& response);

    /// What marks the record under these headings, " - NOT PAID" or " - UNDISCHARGED"; "" for one
    /// that is not open.
    std::string_view mark(std::string_view group, std::string_view sub_group) const;

  private:
    std::set<std::pair<std::string_view, std::string_view>> unpaid_;
    std::set<std::pair<std::string_view, std::string_view>> undischarged_;
};

}  // namespace zr::cli
