// What a layout says, in words for people who know the reports and not the code.
#pragma once

#include <string>
#include <string_view>

#include "reports/layout.h"
#include "reports/statistics.h"

namespace zr::layout {

/// The pieces in order, joined by " + ": constants in quotation marks, values as a form and a path,
/// conditions in square brackets.
std::string describe(const Text& text);

/// A sub-group's words and what follows them.
std::string describe(const SubGroup& sub_group);

std::string_view name_of(RecordFamily family);

/// Where the records of a category are, which of them count, when one is open and what it owes.
std::string describe(const StatisticsCategory& category);

}  // namespace zr::layout
