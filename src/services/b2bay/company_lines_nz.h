// Lines of a company's report that both versions of the New Zealand B2Bay reports have.
#pragma once

#include "reports/layout.h"

namespace zr::b2bay::lines {

using namespace zr::layout;  // the vocabulary of the tables below

inline constexpr Line kGazetteLines[] = {
    date("Publication date", "publication-date"),
    text("Gazette Type", "gazette-type"),
    text("Adverse", "adverse/@indicator"),
    text("Narrative", "narrative"),
};

}  // namespace zr::b2bay::lines
